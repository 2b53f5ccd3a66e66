#include "views/window/ApplicationWindows.h"
#include "app/LanguageManager.h"
#include "base/threads/Background.h"
#include "platform/settings/MemorySettingsStore.h"
#include "support/QtPrinters.h"
#include "views/dialogs/UpdateAlerts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

constexpr int patience = 15'000; // ms

/// A server that has this manifest, or none.
class FakeHttp final : public HttpClient {
public:
    [[nodiscard]] HttpResponse get(const HttpRequest&, const std::stop_token&) override {
        return {body.isEmpty() ? 404 : 200, body};
    }
    QByteArray body;
};

class ApplicationWindowsTest : public testing::Test {
protected:
    ApplicationWindowsTest() {
        Background::restart();
        LanguageManager::shared().setSelectedLanguage(AppLanguage::en);
        window_.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window_, patience));
    }
    ~ApplicationWindowsTest() override {
        EXPECT_TRUE(Background::shutDown(std::chrono::seconds(30)));
    }

    QMessageBox* box() {
        QMessageBox* found = nullptr;
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                found = window_.findChild<QMessageBox*>(u"updateAlert"_s);
                return found != nullptr && found->isVisible();
            },
            patience));
        return found;
    }
    /// Closes the box with the button of this text.
    void press(const QString& text) {
        QMessageBox* shown = box();
        ASSERT_NE(shown, nullptr);
        for (QAbstractButton* button : shown->buttons()) {
            if (button->text().remove(u'&') != text)
                continue;
            QTest::mouseClick(button, Qt::LeftButton);
            EXPECT_TRUE(QTest::qWaitFor(
                [&] { return window_.findChildren<QMessageBox*>().isEmpty(); }, patience));
            return;
        }
        FAIL() << "no button " << text.toStdString();
    }

    QWidget window_;
    QStringList opened_;
    std::shared_ptr<FakeHttp> http_ = std::make_shared<FakeHttp>();
    std::shared_ptr<SettingsStore> store_ = std::make_shared<MemorySettingsStore>();
    UpdateCheckerService checker_{
        http_,
        store_,
        [this](const QUrl& url) { opened_.append(url.toString()); },
        {QUrl(u"https://tessary.example"_s), QUrl(u"https://tessary.example/home"_s), u"1.9"_s}};
    UpdateAlerts alerts_{checker_, window_};
};

TEST_F(ApplicationWindowsTest, anUpdateIsOfferedAsPlainTextAndLeadsToSafePagesOnly) {
    http_->body = R"({"version": "2.0", "release_notes": "<h1>Big</h1>",
                      "download_url": "file:///bin/sh"})";
    checker_.checkForUpdates(false);
    ASSERT_NE(box(), nullptr);
    EXPECT_EQ(box()->windowTitle(), u"Tessary 2.0 is available"_s);
    EXPECT_EQ(box()->textFormat(), Qt::PlainText);
    press(u"Later"_s);
    EXPECT_TRUE(opened_.isEmpty());

    checker_.checkForUpdates(false);
    press(u"Download"_s);
    EXPECT_EQ(opened_, QStringList(u"https://tessary.example/home"_s));

    checker_.checkForUpdates(false);
    press(u"Skip This Version"_s);
    EXPECT_EQ(store_->value(UpdateCheckerService::skippedVersionKey), u"2.0"_s);
}

TEST_F(ApplicationWindowsTest, theProgramEndsWithItsLastMainWindow) {
    ApplicationWindows windows(window_);
    QDialog question(&window_);
    QWidget panel(nullptr, Qt::Tool);
    QWidget second;
    for (QWidget* each : std::initializer_list<QWidget*>{&question, &panel, &second})
        each->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&second, patience));
    bool hasEnded = false;
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &windows, [&] { hasEnded = true; });
    QTimer::singleShot(0, &windows, [&] { window_.close(); });
    QTimer::singleShot(200, &windows, [&] {
        EXPECT_FALSE(hasEnded);
        second.close();
    });
    QTimer::singleShot(patience, qApp, [] { QApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(hasEnded);
}

} // namespace
