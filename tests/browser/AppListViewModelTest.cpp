#include "browser/model/AppListViewModel.h"
#include "phone/PhoneError.h"

#include "support/MainLoop.h"

#include <future>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class AppListViewModelTest : public MainLoop {
protected:
    std::vector<AppInfo> answer(const DeviceInfo& device) {
        ++questions_;
        if (device.udid == u"untrusted"_s)
            throw Error(PhoneError::notTrusted);
        if (device.udid == u"bare"_s)
            return {};
        if (device.udid == u"slow"_s)
            gate_.get_future().wait();
        return {{u"com.a"_s, u"Apple"_s, true, false}, {u"com.b"_s, u"banana"_s, true, false}};
    }
    QStringList shown() const {
        QStringList names;
        for (const AppInfo& each : model_.filteredApps())
            names << each.displayName;
        return names;
    }
    void choose(const QString& udid) {
        DeviceInfo phone;
        phone.udid = udid;
        phone.handle = 1;
        model_.setDevice(phone);
    }
    [[nodiscard]] bool reaches(AppListState state) {
        return eventually([&] { return model_.state() == state; });
    }

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
    EXPECT_EQ(model_.problem()->failures.front().error, Error(PhoneError::notTrusted));
    choose(u"phone"_s);
    EXPECT_TRUE(reaches(AppListState::ready));
    EXPECT_FALSE(model_.problem());
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
