#include "views/dialogs/WirelessDialog.h"

#include "base/threads/Background.h"
#include "platform/process/QtProcessRunner.h"
#include "simulator/usb/VirtualUSBBus.h"
#include "support/QtPrinters.h"
#include "support/ScriptedADBServer.h"
#include "support/ScriptedNetwork.h"

#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class WirelessDialogTest : public ::testing::Test {
protected:
    WirelessDialogTest() {
        Background::restart();
        dialog_.show();
        EXPECT_TRUE(wait([this] { return network_->isBrowsing(); }));
    }
    ~WirelessDialogTest() override {
        dialog_.close();
        EXPECT_TRUE(Background::shutDown(std::chrono::seconds(30)));
    }

    static bool wait(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, 15'000);
    }
    template <typename Widget>
    Widget& find(const char* name) {
        return *dialog_.findChild<Widget*>(QString::fromLatin1(name));
    }
    bool notes(const char* words) {
        return wait(
            [&] { return find<QLabel>("wirelessNote").text().contains(QLatin1StringView(words)); });
    }
    QString row(int number) {
        return find<QListWidget>("wirelessList").item(number)->text();
    }
    /// Has adb answer this from now on.
    void adbSays(const char* words) {
        const std::scoped_lock lock(mutex_);
        said_ = words;
    }
    QByteArray said() {
        const std::scoped_lock lock(mutex_);
        return said_;
    }

    std::mutex mutex_;
    QByteArray said_; ///< guarded by mutex_
    QtProcessRunner runner_;
    VirtualUSBBus bus_;
    const ScriptedADBServer server_{[this](const QByteArray&) { return said(); }};
    ADBWays ways_{{.bus = bus_,
                   .processes = runner_,
                   .server = server_.address(),
                   .adbPaths = QStringList()}};
    const std::shared_ptr<ScriptedNetwork> network_ = std::make_shared<ScriptedNetwork>();
    WirelessDialog dialog_{network_, ways_};
    QPushButton& connect_ = find<QPushButton>("wirelessConnect");
};

TEST_F(WirelessDialogTest, phoneIsConnectedOrTheFailureTold) {
    network_->address = ServiceAddress{u"10.0.0.2"_s, 4711};
    network_->report(WirelessADBDiscovery::connectType, "adb-A-1");
    network_->report(WirelessADBDiscovery::pairingType, "adb-B-2");
    auto& list = find<QListWidget>("wirelessList");
    ASSERT_TRUE(wait([&] { return list.count() == 2; }));
    EXPECT_TRUE(row(1).endsWith(u"Waiting to be paired"_s));
    list.setCurrentRow(1);
    EXPECT_EQ(connect_.text(), u"Pair…"_s);
    list.setCurrentRow(0);
    EXPECT_EQ(connect_.text(), u"Connect"_s);
    const std::pair<const char*, QString> rows[] = {
        {"failed to authenticate to 10.0.0.2:4711",
         u"Unlock it and tap “Allow” in the question about debugging."_s},
        {"connected to 10.0.0.2:4711", u"Connected"_s},
    };
    for (const auto& [said, shown] : rows) {
        adbSays(said);
        ASSERT_TRUE(connect_.isEnabled()) << said;
        QTest::mouseClick(&connect_, Qt::LeftButton);
        EXPECT_FALSE(connect_.isEnabled()) << "one at a time";
        EXPECT_TRUE(row(0).endsWith(u"Connecting…"_s));
        EXPECT_TRUE(wait([&] { return row(0).endsWith(shown); })) << row(0).toStdString();
    }
    EXPECT_FALSE(connect_.isEnabled());
}

TEST_F(WirelessDialogTest, onlySixDigitsPair) {
    network_->address = ServiceAddress{u"10.0.0.2"_s, 4711};
    network_->report(WirelessADBDiscovery::pairingType, "adb-B-2");
    ASSERT_TRUE(wait([&] { return find<QListWidget>("wirelessList").count() == 1; }));
    find<QListWidget>("wirelessList").setCurrentRow(0);
    QTest::mouseClick(&connect_, Qt::LeftButton);
    auto* question = dialog_.findChild<QInputDialog*>();
    ASSERT_NE(question, nullptr);
    const auto* pair = question->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    const std::pair<const char*, bool> rows[] = {
        {"", false}, {"12345", false}, {"123 456", true}, {"1234567", false}, {"12345a", false},
    };
    for (const auto& [typed, isCode] : rows) {
        question->setTextValue(QString::fromLatin1(typed));
        EXPECT_EQ(pair->isEnabled(), isCode) << typed;
    }
    question->reject();
}

} // namespace
} // namespace tessary
