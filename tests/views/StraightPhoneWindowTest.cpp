#include "WindowFixture.h"
#include "simulator/adbd/VirtualADBD.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;

/// A window on a machine without adb, and a phone on the network that can be debugged.
class StraightPhoneWindowTest : public AppWindowFixture {
protected:
    StraightPhoneWindowTest() {
        disk_.write(u"phone/letter.txt"_s, "dear");
        adbd_.start();
        TessaryAppSetup setup;
        setup.defaults = defaults_;
        app_ = std::make_unique<TessaryApp>(DeviceSources(bus_, nullptr, true), withoutADB_,
                                            std::move(setup));
        openWindow();
    }
    ~StraightPhoneWindowTest() override {
        close();
    }
    [[nodiscard]] static ADBServerAddress nowhere() {
        ADBServerAddress address;
        address.port = 1;
        return address;
    }
    [[nodiscard]] bool shows(const QString& name) const {
        const auto& items = window_->browser().items();
        return std::ranges::any_of(items, [&](const FileItem& one) { return one.name == name; });
    }

    TemporaryFolder disk_;
    VirtualADBD adbd_{{.folder = disk_.makeFolder(u"phone"_s)}};
    DeviceServices withoutADB_{{bus_, processes_, nowhere(), QStringList()}};
};

TEST_F(StraightPhoneWindowTest, isBrowsedAndCopiedBothWays) {
    withoutADB_.adbWays().connect(adbd_.address(), {});
    ASSERT_TRUE(wait([this] { return list("deviceList").model()->rowCount() == 1; }));
    clickRow(list("deviceList"), 0);
    ASSERT_TRUE(wait([this] { return shows(u"letter.txt"_s); }));
    window_->browser().selection().selectAll();
    window_->browserView().actions().download->trigger();
    EXPECT_TRUE(wait([this] { return local_.read(u"letter.txt"_s) == "dear"; }));
    filesToCopy_ = {disk_.write(u"answer.txt"_s, "yours")};
    window_->browserView().actions().uploadFiles->trigger();
    EXPECT_TRUE(wait([this] { return disk_.read(u"phone/answer.txt"_s) == "yours"; }));
    EXPECT_TRUE(wait([this] { return shows(u"answer.txt"_s); }));
    adbd_.stop();
    window_->browser().reload();
    EXPECT_TRUE(wait([this] { return window_->browser().state() != BrowserState::ready; }));
}

} // namespace
} // namespace tessary
