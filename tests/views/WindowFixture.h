#pragma once

#include "app/TessaryApp.h"
#include "base/threads/Background.h"
#include "platform/process/QtProcessRunner.h"
#include "simulator/faults/FaultyAndroid.h"
#include "support/PluggedPhone.h"
#include "support/QtPrinters.h"
#include "views/common/StatusBanner.h"
#include "views/window/MainWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <gmock/gmock.h>

#include <algorithm>
#include <mutex>

namespace tessary {

inline constexpr int windowPatience = 15'000; // ms

/// The programs of this machine, but those that hold phones are the ones that a test names.
class ProgramsOfTest final : public ProcessRunner {
public:
    void setHolders(const QByteArrayList& names) {
        const std::scoped_lock lock(mutex_);
        holders_ = names;
    }
    /// Whom somebody asked to end, as pkill takes them; null when nobody did.
    [[nodiscard]] QString ended() const {
        const std::scoped_lock lock(mutex_);
        return ended_;
    }
    [[nodiscard]] ProcessResult follow(const ProcessRequest& request) override {
        const bool asks = request.program == QLatin1StringView("/usr/bin/pgrep");
        if (!asks && request.program != QLatin1StringView("/usr/bin/pkill"))
            return processes_.follow(request);
        const std::scoped_lock lock(mutex_);
        if (!asks)
            ended_ = request.arguments.last();
        ProcessResult result{ProcessResult::Outcome::exited, holders_.isEmpty() ? 1 : 0, {}, {}};
        for (const QByteArray& name : holders_)
            result.standardOutput += "71 " + name + '\n';
        return result;
    }

private:
    mutable std::mutex mutex_;
    QByteArrayList holders_; ///< guarded by mutex_
    QString ended_;          ///< guarded by mutex_
    QtProcessRunner processes_;
};

/// The main window of an application, used by mouse and keyboard.
class AppWindowFixture : public ::testing::Test {
protected:
    void open(const DeviceSources& sources) {
        Background::restart();
        TessaryAppSetup setup;
        setup.updates = {QUrl(QStringLiteral("https://updates.tessary.example")),
                         QUrl(QStringLiteral("https://tessary.example")), QStringLiteral("1.0")};
        setup.defaults = defaults_;
        setup.copyRecords = records_.path();
        app_ = std::make_unique<TessaryApp>(sources, services_, std::move(setup));
        openWindow();
    }
    void openWindow() {
        window_ =
            std::make_unique<MainWindow>(*app_,
                                         CopyDialogs{[this](QWidget*) { return local_.path(); },
                                                     [this](QWidget*) {
                                                         if (whileChoosing_)
                                                             whileChoosing_();
                                                         return filesToCopy_;
                                                     },
                                                     [](QWidget*) { return QStringList(); }},
                                         [this](const QString& path) {
                                             opened_.append(path);
                                             return opensFiles_;
                                         });
        window_->show();
        activate();
    }
    /// Before the phones go.
    void close() {
        window_.reset();
        app_.reset();
    }
    /// There is no window manager that would give the focus back after another window.
    void activate() {
        EXPECT_TRUE(wait([this] {
            window_->activateWindow();
            return QGuiApplication::focusWindow() == window_->windowHandle();
        }));
    }

    static bool wait(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, windowPatience);
    }
    [[nodiscard]] QListView& list(const char* name) const {
        return *window_->findChild<QListView*>(QString::fromLatin1(name));
    }
    static void clickRow(QListView& view, int row) {
        QCoreApplication::processEvents(); // rows above may just have come
        const QModelIndex index = view.model()->index(row, 0);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
    }

    /// A button that is seen; null when none has this text.
    [[nodiscard]] QAbstractButton* shownButton(const QString& text) const {
        const auto buttons = window_->findChildren<QAbstractButton*>();
        const auto found = std::ranges::find_if(buttons, [&](const QAbstractButton* button) {
            return button->isVisible() && button->text() == text;
        });
        return found == buttons.end() ? nullptr : *found;
    }
    /// Whether it stands in the window.
    [[nodiscard]] bool says(const QString& text) const {
        return std::ranges::any_of(window_->findChildren<QLabel*>(), [&](const QLabel* label) {
            return label->isVisible() && label->text().contains(text);
        });
    }
    [[nodiscard]] StatusBanner& banner() const {
        return *window_->findChild<StatusBanner*>(QStringLiteral("statusBanner"));
    }
    static QMessageBox* question() {
        return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    }
    /// Does something while the next question is open, then clicks its button.
    void whileAsked(const QString& button, std::function<void()> meanwhile = {}) {
        QTimer::singleShot(50, window_.get(), [this, button, meanwhile = std::move(meanwhile)] {
            QMessageBox* asked = question();
            if (asked == nullptr) {
                whileAsked(button, meanwhile);
                return;
            }
            if (meanwhile)
                meanwhile();
            for (QAbstractButton* each : asked->buttons())
                if (each->text() == button)
                    each->click();
        });
    }
    /// Whether a widget takes what is dragged over it there.
    static bool drag(QWidget& over, const QPoint& spot, const QMimeData& data,
                     Qt::KeyboardModifiers keys = {}) {
        QDragEnterEvent enter(spot, dropActions, &data, Qt::LeftButton, keys);
        QApplication::sendEvent(&over, &enter);
        QDragMoveEvent move(spot, dropActions, &data, Qt::LeftButton, keys);
        QApplication::sendEvent(&over, &move);
        return move.isAccepted();
    }
    static void drop(QWidget& on, const QPoint& spot, const QMimeData& data,
                     Qt::KeyboardModifiers keys = {}) {
        QDropEvent drop(spot, dropActions, &data, Qt::LeftButton, keys);
        QApplication::sendEvent(&on, &drop);
    }
    static constexpr Qt::DropActions dropActions = Qt::MoveAction | Qt::CopyAction;

    /// Of two phones the one that is not shown.
    void chooseOtherPhone() const {
        QListView& devices = list("deviceList");
        ASSERT_TRUE(wait([&] { return devices.model()->rowCount() == 2; }));
        clickRow(devices, 1 - devices.currentIndex().row());
    }

    TemporaryFolder local_;
    TemporaryFolder records_; ///< of copies
    QStringList filesToCopy_;
    bool opensFiles_ = true;              ///< there is a program for them
    QStringList opened_;                  ///< local files that the window had the desktop open
    std::function<void()> whileChoosing_; ///< happens while the user looks for files
    std::shared_ptr<SettingsStore> defaults_ = std::make_shared<MemorySettingsStore>();
    VirtualUSBBus bus_;
    ProgramsOfTest processes_;
    /// With no adb, and no server of one, whatever lies on this machine.
    DeviceServices services_{
        {bus_, processes_, {QStringLiteral("127.0.0.1"), 1, {}}, QStringList()}};
    std::unique_ptr<TessaryApp> app_;
    std::unique_ptr<MainWindow> window_;
};

/// A window on a virtual phone.
class WindowFixture : public AppWindowFixture {
protected:
    /// With these files on the phone beside those that every test knows.
    explicit WindowFixture(const QMap<QString, QByteArray>& more = {}) {
        for (auto file = more.cbegin(); file != more.cend(); ++file)
            phone_.write(file.key(), *file);
        phone_.write(QStringLiteral("DCIM/alpha.txt"), "a");
        phone_.write(QStringLiteral("DCIM/beta.txt"), "bb");
        phone_.write(QStringLiteral("DCIM/Trip/one.txt"), "one");
        phone_.write(QStringLiteral("readme.md"), "hello");
        open(bus_);
        browse();
    }
    ~WindowFixture() override {
        close();
    }

    /// From the phone's own page, which comes first, to its files.
    void browse() {
        EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("DCIM")); }));
        window_->choice().browseFiles();
        EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("DCIM")); }));
    }
    [[nodiscard]] QTreeView& table() const {
        return *window_->browserView().findChild<QTreeView*>(QStringLiteral("fileTable"));
    }
    [[nodiscard]] QModelIndex row(const QString& name) const {
        const QAbstractItemModel& model = *table().model();
        for (int i = 0; i < model.rowCount(); ++i)
            if (model.index(i, 0).data().toString() == name)
                return model.index(i, 0);
        return {};
    }
    /// Empty when it is not shown.
    [[nodiscard]] QString idOf(const QString& name) const {
        return row(name).data(FileListModel::idRole).toString();
    }
    [[nodiscard]] bool isShown(const QString& name) const {
        return !window_->browser().isLoading() && row(name).isValid();
    }

    void click(const QString& name, Qt::KeyboardModifiers keys = {}) {
        activate();
        const QRect cell = table().visualRect(row(name));
        QTest::mouseClick(table().viewport(), Qt::LeftButton, keys, cell.center());
    }
    void doubleClick(const QString& name) {
        const QPoint spot = table().visualRect(row(name)).center();
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, spot);
        QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, spot);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers keys = {}) {
        QTest::keyClick(QApplication::focusWidget() != nullptr ? QApplication::focusWidget()
                                                               : window_.get(),
                        key, keys);
    }
    void go(const QString& path, const QString& holds) {
        window_->browser().navigateTo(path);
        ASSERT_TRUE(wait([&] { return isShown(holds); }));
        activate();
    }
    void openFolder() {
        doubleClick(QStringLiteral("DCIM"));
        ASSERT_TRUE(wait([this] { return isShown(QStringLiteral("alpha.txt")); }));
    }
    [[nodiscard]] QStringList selectedNames() const {
        QStringList names;
        for (const FileItem& item : window_->browser().selection().entries())
            names.append(item.name);
        return names;
    }

    PluggedPhone phone_{bus_};
};

} // namespace tessary
