#include "app/updates/UpdateCheckerService.h"
#include "platform/http/HttpClient.h"
#include "platform/settings/MemorySettingsStore.h"
#include "support/MainLoop.h"
#include "support/ScriptedHttpServer.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace tessary;

namespace {

using Server = ScriptedHttpServer;

QByteArray manifest(const QByteArray& version) {
    return QByteArray(R"({"version": ")") + version + R"(", "release_notes": "Notes"})";
}

/// A checker of version 1.9 that asks a real server on this machine.
class UpdateCheckerServiceTest : public MainLoop {
protected:
    void start(const Server& server) {
        checker_ = std::make_unique<UpdateCheckerService>(
            std::make_shared<QtHttpClient>(), store_, [](const QUrl&) {},
            UpdateSource{server.url(), QUrl(u"https://tessary.example"_s), u"1.9"_s});
    }
    void check(bool isUserInitiated) {
        checker_->checkForUpdates(isUserInitiated);
        EXPECT_TRUE(checker_->isChecking());
        EXPECT_TRUE(eventually([this] { return !checker_->isChecking(); }));
    }
    [[nodiscard]] bool isSilent() const {
        return !checker_->availableUpdate() && !checker_->showUpToDateAlert() &&
               !checker_->checkFailure();
    }

    std::shared_ptr<SettingsStore> store_ = std::make_shared<MemorySettingsStore>();
    std::unique_ptr<UpdateCheckerService> checker_;
};

TEST_F(UpdateCheckerServiceTest, aNewerVersionIsOfferedUntilItIsSkipped) {
    QByteArray version;
    const Server server([&](const QByteArray&) { return Server::ok(manifest(version)); });
    start(server);
    const auto isOffered = [&](const char* published) {
        version = published;
        check(false);
        return !isSilent() && checker_->availableUpdate()->version == QLatin1StringView(version);
    };
    EXPECT_TRUE(isOffered("1.10"));
    checker_->skipVersion(u"1.10"_s);
    EXPECT_TRUE(isSilent());
    EXPECT_FALSE(isOffered("1.10"));
    check(true);
    EXPECT_FALSE(isSilent()) << "who asks is told of it all the same";
    checker_->dismissUpdate();
    EXPECT_TRUE(isOffered("1.11"));
    EXPECT_FALSE(isOffered("1.9"));
    check(true);
    EXPECT_TRUE(checker_->showUpToDateAlert()) << "only the user's own check tells that";
    checker_->dismissUpToDateAlert();
    EXPECT_TRUE(isSilent());
}

TEST_F(UpdateCheckerServiceTest, onlyACheckOfTheUsersTellsThatItFailed) {
    const std::pair<QByteArray, Error> rows[] = {
        {"HTTP/1.1 503 Busy\r\nContent-Length: 0\r\n\r\n", Error(HttpError::badStatus, {503})},
        {Server::ok("<html>captive portal</html>"), Error(HttpError::badContent)},
        {Server::redirect("http://tessary.example/"), Error(HttpError::unsafeAddress)},
    };
    for (const auto& [answer, why] : rows) {
        const Server server(answer);
        start(server);
        check(false);
        EXPECT_TRUE(isSilent());
        check(true);
        EXPECT_EQ(checker_->checkFailure(), why);
        checker_->dismissError();
        EXPECT_TRUE(isSilent());
    }
}

TEST_F(UpdateCheckerServiceTest, theProgramEndsWhileTheServerIsStillSilent) {
    const Server server{QByteArray()};
    start(server);
    checker_->checkForUpdates(false);
    EXPECT_TRUE(eventually([&] { return !server.requests().empty(); }));
    checker_.reset();
    EXPECT_TRUE(Background::shutDown(10s));
}

} // namespace
