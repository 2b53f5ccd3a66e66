#include "files/AppListViewModel.h"

#include "core/TessaryError.h"
#include "support/MainLoop.h"

#include <future>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

AppInfo app(const QString& identifier, const QString& name) {
    return {identifier, name, true, false};
}

class AppListViewModelTest : public MainLoop {
protected:
    AppListViewModelTest() {
        phone_.udid = u"phone"_s;
        phone_.handle = 1;
    }
    std::vector<AppInfo> answer(const DeviceInfo& device) {
        ++questions_;
        if (device.udid == u"untrusted"_s)
            throw TessaryError::lockdownFailed(u"Handshake failed: -19"_s);
        if (device.udid == u"bare"_s)
            return {};
        if (device.udid == u"slow"_s)
            gate_.get_future().wait();
        return {app(u"com.a"_s, u"Apple"_s), app(u"com.b"_s, u"banana"_s)};
    }
    QStringList shown() const {
        QStringList names;
        for (const AppInfo& each : model_.filteredApps())
            names << each.displayName;
        return names;
    }
    void choose(const QString& udid) {
        phone_.udid = udid;
        model_.setDevice(phone_);
    }
    [[nodiscard]] bool reaches(AppListState state) {
        return eventually([&] { return model_.state() == state; });
    }

    DeviceInfo phone_;
    std::atomic<int> questions_ = 0;
    std::promise<void> gate_;
    AppListViewModel model_{
        [this](const DeviceInfo& device, const std::stop_token&) { return answer(device); }};
};

TEST_F(AppListViewModelTest, everyAnswerIsAStateOfItsOwn) {
    choose(u"phone"_s);
    EXPECT_EQ(model_.state(), AppListState::loading);
    ASSERT_TRUE(reaches(AppListState::ready));
    EXPECT_EQ(shown(), QStringList({u"Apple"_s, u"banana"_s}));
    model_.setSearchText(u" APP "_s);
    EXPECT_EQ(shown(), QStringList(u"Apple"_s));
    model_.setSearchText(u"nothing"_s);
    EXPECT_EQ(model_.state(), AppListState::noMatch);
    model_.setSearchText({});
    choose(u"bare"_s);
    EXPECT_TRUE(reaches(AppListState::empty));
    choose(u"untrusted"_s);
    ASSERT_TRUE(reaches(AppListState::failed));
    EXPECT_EQ(model_.error()->advice, u"Unlock the phone and tap Trust on it."_s);
    choose(u"phone"_s);
    EXPECT_TRUE(reaches(AppListState::ready));
    EXPECT_FALSE(model_.error());
}

TEST_F(AppListViewModelTest, theAnswerOfAPhoneThatIsNotWantedAnyMoreIsDropped) {
    choose(u"slow"_s);
    choose(u"bare"_s);
    gate_.set_value();
    EXPECT_TRUE(reaches(AppListState::empty));
    turnFor(50ms);
    EXPECT_EQ(model_.state(), AppListState::empty);
    EXPECT_EQ(questions_, 2);
}

} // namespace
} // namespace tessary
