#include "browser/model/AppListViewModel.h"

#include "support/MainLoop.h"

#include <future>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

class AppListViewModelTest : public MainLoop {
protected:
    std::vector<AppInfo> answer(const DeviceInfo& device) {
        ++questions_;
        if (device.udid == u"bare"_s)
            return {};
        if (device.udid == u"slow"_s)
            gate_.get_future().wait();
        return {{u"com.a"_s, u"Apple"_s, true, false}};
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
