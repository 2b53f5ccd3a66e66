#include "files/FakeFileAccess.h"
#include "files/FileListModel.h"
#include "files/MainLoop.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>

namespace tessary {
namespace {

class FileBrowserModelTest : public MainLoop {
protected:
    FileBrowserModelTest() {
        files_->fill(QStringLiteral("/root"),
                     {QStringLiteral("b.txt"), QStringLiteral("a.jpg"), QStringLiteral("dir/")});
        browser_.open(files_, std::nullopt, QStringLiteral("/root"));
        EXPECT_TRUE(eventually([this] { return !browser_.isLoading(); }));
    }
    [[nodiscard]] QString text(int row, int column, int role = Qt::DisplayRole) const {
        return model_.data(model_.index(row, column), role).toString();
    }
    void reload() {
        browser_.reload();
        ASSERT_TRUE(eventually([this] { return !browser_.isLoading(); }));
    }

    std::shared_ptr<FakeFileAccess> files_ = std::make_shared<FakeFileAccess>();
    TransferEngine engine_;
    TransferViewModel transfers_{engine_};
    FileBrowserViewModel browser_{transfers_};
    FileListModel model_{browser_};
    QAbstractItemModelTester tester_{&model_,
                                     QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(FileBrowserModelTest, entriesAreShownWithTheirFacts) {
    ASSERT_EQ(model_.rowCount(), 3);
    EXPECT_EQ(text(0, FileListModel::nameColumn), QStringLiteral("dir"));
    EXPECT_EQ(text(0, FileListModel::sizeColumn), QStringLiteral("--"));
    EXPECT_EQ(text(0, FileListModel::kindColumn), QStringLiteral("Folder"));
    EXPECT_EQ(text(1, FileListModel::nameColumn), QStringLiteral("a.jpg"));
    EXPECT_EQ(text(1, FileListModel::sizeColumn), QStringLiteral("10 bytes"));
    EXPECT_EQ(text(1, FileListModel::dateColumn), QStringLiteral("--"));
    EXPECT_EQ(text(1, 0, FileListModel::iconNameRole), QStringLiteral("photo"));
    EXPECT_EQ(text(1, 0, FileListModel::idRole), QStringLiteral("/root/a.jpg"));
    EXPECT_EQ(model_.indexOf(QStringLiteral("/root/b.txt")).row(), 2);
    EXPECT_FALSE(model_.indexOf(QStringLiteral("/root/none")).isValid());
    EXPECT_TRUE(model_.flags(model_.index(0, 0)) & Qt::ItemIsDropEnabled);
    EXPECT_FALSE(model_.flags(model_.index(1, 0)) & Qt::ItemIsDropEnabled);
}

TEST_F(FileBrowserModelTest, persistentIndexesFollowSortFilterAndReload) {
    const QPersistentModelIndex a(model_.indexOf(QStringLiteral("/root/a.jpg")));
    const QPersistentModelIndex b(model_.indexOf(QStringLiteral("/root/b.txt")));
    model_.sort(FileListModel::nameColumn, Qt::DescendingOrder);
    EXPECT_EQ(a.row(), 2);
    EXPECT_EQ(b.row(), 1);
    files_->fill(QStringLiteral("/root"), {QStringLiteral("aa.txt"), QStringLiteral("c.txt")});
    reload();
    EXPECT_EQ(model_.rowCount(), 5);
    EXPECT_EQ(b.row(), 2);
    EXPECT_EQ(a.row(), 4);
    browser_.setSearchText(QStringLiteral("TXT"));
    EXPECT_EQ(model_.rowCount(), 3);
    EXPECT_FALSE(a.isValid());
    EXPECT_EQ(b.data(FileListModel::idRole).toString(), QStringLiteral("/root/b.txt"));
    browser_.setSearchText({});
    model_.sort(FileListModel::kindColumn, Qt::AscendingOrder);
    EXPECT_EQ(b.data(FileListModel::idRole).toString(), QStringLiteral("/root/b.txt"));
    browser_.navigateTo(QStringLiteral("/root/dir"));
    EXPECT_FALSE(b.isValid());
    EXPECT_EQ(model_.rowCount(), 0);
    ASSERT_TRUE(eventually([this] { return !browser_.isLoading(); }));
}

TEST_F(FileBrowserModelTest, editedNameRenamesOnTheDevice) {
    EXPECT_FALSE(model_.setData(model_.index(1, 0), QStringLiteral("a.jpg"), Qt::EditRole));
    EXPECT_FALSE(model_.setData(model_.index(1, 1), QStringLiteral("x"), Qt::EditRole));
    EXPECT_TRUE(model_.setData(model_.index(1, 0), QStringLiteral("z.jpg"), Qt::EditRole));
    EXPECT_EQ(text(1, 0), QStringLiteral("a.jpg")) << "not before the phone has done it";
    ASSERT_TRUE(eventually([this] { return text(2, 0) == QStringLiteral("z.jpg"); }));
    EXPECT_EQ(browser_.selectedItems(), QSet<QString>{QStringLiteral("/root/z.jpg")});
}

TEST_F(FileBrowserModelTest, oddNamesAreShownWhole) {
    const QString longName = QString(300, QLatin1Char('n')) + QStringLiteral(".txt");
    const QString arabic = QStringLiteral("صورة 10.jpg");
    const QString hostile = QStringLiteral("a\u202Egpj.exe");
    files_->fill(QStringLiteral("/root/dir"), {longName, arabic, hostile, QStringLiteral("\n")});
    browser_.navigateTo(QStringLiteral("/root/dir"));
    ASSERT_TRUE(eventually([this] { return !browser_.isLoading(); }));
    QStringList names;
    for (int row = 0; row < model_.rowCount(); ++row)
        names << text(row, 0);
    EXPECT_THAT(names,
                testing::UnorderedElementsAre(longName, arabic, hostile, QStringLiteral("\n")));
    browser_.setSearchText(QString(250, QLatin1Char('N')));
    EXPECT_EQ(model_.rowCount(), 1);
}

} // namespace
} // namespace tessary
