#pragma once

#include "app/TessaryApp.h"
#include "app/views/MainWindow.h"
#include "core/Background.h"
#include "phones/VirtualAndroid.h"
#include "platform/qt/QtProcessRunner.h"
#include "support/PluggedPhone.h"
#include "support/QtPrinters.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessary {

inline constexpr int windowPatience = 15'000; // ms

/// A window on a virtual phone, used by mouse and keyboard.
class WindowFixture : public ::testing::Test {
protected:
    WindowFixture() {
        Background::restart();
        phone_.write(QStringLiteral("DCIM/alpha.txt"), "a");
        phone_.write(QStringLiteral("DCIM/beta.txt"), "bb");
        phone_.write(QStringLiteral("DCIM/Trip/one.txt"), "one");
        phone_.write(QStringLiteral("readme.md"), "hello");
        app_ = std::make_unique<TessaryApp>(bus_, files_, TessaryAppSetup{});
        window_ = std::make_unique<MainWindow>(*app_, dialogs());
        window_->show();
        window_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get(), windowPatience));
        EXPECT_TRUE(wait([this] { return isShown(QStringLiteral("DCIM")); }));
    }

    ~WindowFixture() override {
        window_.reset();
        app_.reset();
    }

    BrowserView::Dialogs dialogs() {
        return {[this](QWidget*) { return local_.path(); },
                [this](QWidget*) {
                    if (whileChoosing_)
                        whileChoosing_();
                    return filesToCopy_;
                },
                [](QWidget*) { return QString(); }};
    }

    static bool wait(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, windowPatience);
    }

    [[nodiscard]] QTreeView& table() const {
        return *window_->findChild<QTreeView*>(QStringLiteral("fileTable"));
    }
    [[nodiscard]] QModelIndex row(const QString& name) const {
        const QAbstractItemModel& model = *table().model();
        for (int i = 0; i < model.rowCount(); ++i)
            if (model.index(i, 0).data().toString() == name)
                return model.index(i, 0);
        return {};
    }
    [[nodiscard]] bool isShown(const QString& name) const {
        return !window_->browser().isLoading() && row(name).isValid();
    }

    void click(const QString& name, Qt::KeyboardModifiers keys = {}) {
        // There is no window manager that would give the focus back after a dialog.
        window_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get(), windowPatience));
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
    /// Does something while the next question is open, then clicks its button.
    void whileAsked(const QString& button, std::function<void()> meanwhile = {}) {
        QTimer::singleShot(50, window_.get(), [this, button, meanwhile = std::move(meanwhile)] {
            auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (question == nullptr) {
                whileAsked(button, meanwhile);
                return;
            }
            if (meanwhile)
                meanwhile();
            for (QAbstractButton* each : question->buttons())
                if (each->text() == button)
                    each->click();
        });
    }
    void openFolder() {
        doubleClick(QStringLiteral("DCIM"));
        ASSERT_TRUE(wait([this] { return isShown(QStringLiteral("alpha.txt")); }));
    }
    [[nodiscard]] QStringList selectedNames() const {
        QStringList names;
        for (const FileItem& item : window_->browser().selectedEntries())
            names.append(item.name);
        return names;
    }

    TemporaryFolder local_;
    QStringList filesToCopy_;
    std::function<void()> whileChoosing_; ///< happens while the user looks for files
    VirtualUsbBus bus_;
    PluggedPhone phone_{bus_};
    QtProcessRunner processes_;
    DeviceFileService files_{bus_, processes_};
    std::unique_ptr<TessaryApp> app_;
    std::unique_ptr<MainWindow> window_;
};

} // namespace tessary
