#include "WindowFixture.h"
#include "platform/settings/JsonSettingsStore.h"

#include <QTabWidget>
#include <QToolButton>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// What the window has to say that is no matter of a phone.
class NoticesTest : public AppWindowFixture {
protected:
    ~NoticesTest() override {
        close();
    }
    [[nodiscard]] bool tells(const QString& part) const {
        return banner().isVisible() &&
               (banner().accessibleName() + u' ' + banner().accessibleDescription()).contains(part);
    }
    void closeBanner() const {
        for (QToolButton* button : banner().findChildren<QToolButton*>())
            button->click();
    }
};

TEST_F(NoticesTest, damagedSettingsAreSaidAndKept) {
    const QString file = local_.write(u"settings.json"_s, "{ this is no JSON");
    defaults_ = std::make_shared<JsonSettingsStore>(file);
    open(bus_);
    EXPECT_TRUE(wait([&] { return tells(u"could not be read"_s); }));
    defaults_->setValue(u"key"_s, 1);
    EXPECT_TRUE(wait([&] { return tells(u"settings.json.damaged"_s); })) << "where they are now";
    EXPECT_EQ(local_.read(u"settings.json.damaged"_s), "{ this is no JSON");
    closeBanner();
    EXPECT_FALSE(banner().isVisible());
    QTest::qWait(100);
    EXPECT_FALSE(banner().isVisible()) << "once is enough";
}

TEST_F(NoticesTest, aProgramThatOpensPhonesIsSaidWhereNoFilesAreShown) {
    open(bus_);
    EXPECT_FALSE(banner().isVisible());
    processes_.setHolders({"gvfsd-mtp"});
    {
        PluggedPhone phone(bus_);
        phone.write(u"readme.md"_s, "hello");
        EXPECT_TRUE(wait([&] {
            return window_->browser().files() && !window_->browser().isLoading() &&
                   !window_->browser().items().empty();
        }));
        EXPECT_FALSE(banner().isVisible()) << "nobody is in the way";
        phone.android.unplug();
        EXPECT_TRUE(wait([&] { return tells(u"Another program"_s); }));
        close();
    }
}

TEST_F(NoticesTest, whatLeadsNowhereIsNotOffered) {
    for (const bool hasAddresses : {true, false}) {
        SCOPED_TRACE(hasAddresses);
        TessaryAppSetup setup;
        setup.updates = {hasAddresses ? QUrl(u"https://updates.tessary.example"_s) : QUrl(),
                         hasAddresses ? QUrl(u"https://tessary.example"_s) : QUrl(), u"1.0"_s};
        app_ = std::make_unique<TessaryApp>(bus_, services_, setup);
        openWindow();
        QTest::keyClick(window_.get(), Qt::Key_Comma, Qt::ControlModifier);
        const auto* tabs = window_->findChild<QTabWidget*>();
        ASSERT_TRUE(wait([&] {
            tabs = window_->findChild<QTabWidget*>();
            return tabs != nullptr;
        }));
        EXPECT_EQ(tabs->isTabVisible(2), hasAddresses);
        close();
    }
}

} // namespace
} // namespace tessary
