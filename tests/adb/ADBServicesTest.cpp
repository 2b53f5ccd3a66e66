#include "adb/ADBScript.h"
#include "adb/services/ADBShellClient.h"
#include "adb/services/ADBShellSession.h"
#include "adb/services/ADBSyncClient.h"

#include <gmock/gmock.h>

namespace tessary {

namespace {

using testing::ElementsAre;

ADBSyncClient clientOf(Bytes bytes, Bytes again = {}, std::size_t step = 3) {
    return {std::make_unique<Script>(std::move(bytes), std::move(again), step), {false, false}};
}

QByteArrayList namesOf(ADBSyncClient& client, std::size_t most = 100) {
    QByteArrayList names;
    client.list("/sdcard/",
                [&](const ADBFacts&, QByteArray&& name) {
                    if (static_cast<std::size_t>(names.size()) == most)
                        throw Error(ADBError::nonsense); // as the caller's bound does
                    names.append(name);
                },
                {});
    return names;
}

std::uint64_t received(ADBSyncClient& client, std::uint64_t most = 1000) {
    return client.receive(
        "/sdcard/a", [](const ADBFacts&) {},
        [&, got = std::uint64_t{0}](ByteView bytes) mutable {
            got += bytes.size();
            return got < most;
        },
        {});
}

TEST(ADBSyncClient, answersCutAnywhereAreAnErrorAndNeverLess) {
    const Bytes listing = oneEntry + oneEntry + listEnd;
    const Bytes file =
        oneStat + oneStat + Record("DATA").number(3).text("abc") + Record("DONE").number(0);
    for (std::size_t size = 0; size < listing.size(); ++size) {
        auto client =
            clientOf({listing.begin(), listing.begin() + static_cast<std::ptrdiff_t>(size)});
        EXPECT_EQ(codeOf([&] { (void)namesOf(client); }), "brokenOff") << size;
        EXPECT_FALSE(client.isUsable());
    }
    for (std::size_t size = 0; size < file.size(); ++size) {
        auto client = clientOf({file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size)});
        EXPECT_EQ(codeOf([&] { (void)received(client); }), "brokenOff") << size;
    }
    auto client = clientOf(listing + file);
    EXPECT_THAT(namesOf(client), ElementsAre("a", "a"));
    EXPECT_EQ(received(client), 3U);
    EXPECT_TRUE(client.isUsable()) << "one stream takes many requests";
}

TEST(ADBSyncClient, endlessAnswersEndWhereTheCallerSaysSo) {
    auto listing = clientOf({}, oneEntry, 4096);
    EXPECT_EQ(codeOf([&] { (void)namesOf(listing, 10'000); }), "nonsense");
    EXPECT_FALSE(listing.isUsable());
    auto file = clientOf(oneStat + oneStat, Record("DATA").number(4).text("abcd"), 4096);
    EXPECT_GE(received(file, 100'000), 100'000U);
    EXPECT_FALSE(file.isUsable());
    auto piece =
        clientOf(oneStat + oneStat + Record("DATA").number(0xFFFFFFFF), {std::byte{1}}, 4096);
    EXPECT_GE(received(piece, 100'000), 100'000U) << "a piece that claims 4 GiB";
}

TEST(ADBSyncClient, manyFilesAtATimeEndWithTheFirstThatIsRefused) {
    const std::vector<ADBSyncClient::SmallFile> files{{"/a", "a", 1}, {"/b", "b", 2}};
    const Bytes okay = Record("OKAY").number(0);
    const Bytes fail = Record("FAIL").number(2).text("no");
    const std::pair<const char*, Bytes> sent[] = {
        {"nothing", okay + okay},
        {"brokenOff", okay},
        {"brokenOff", okay + Record("OKA")},
        {"syncFailed", okay + fail},
        {"syncFailed", fail},
        {"nonsense", okay + Record("DONE").number(0)},
        {"nonsense", Record("FAIL").number(0xFFFFFFF0)},
    };
    for (const auto& [code, bytes] : sent) {
        auto client = clientOf(bytes);
        EXPECT_EQ(codeOf([&] { client.sendTogether(files, 0100660, [](std::uint64_t) {}, {}); }),
                  code);
        EXPECT_EQ(client.isUsable(), std::string(code) == "nothing");
    }
    const Bytes a = Record("DATA").number(1).text("a") + Record("DONE").number(0);
    const Bytes endless = Record("DATA").number(1).text("a");
    const std::tuple<const char*, Bytes, Bytes, int> read[] = {
        {"nothing", a + a, {}, 2},
        {"nothing", a + fail, {}, 1},
        {"nothing", a + Record("DONE").number(0), {}, 1},
        {"nothing", a, endless, 1},
        {"nothing", a + Record("DATA").number(0xFFFFFFFF), {}, 1},
        {"nonsense", a + okay, {}, 0},
        {"nonsense", a, Record("DATA").number(0), 0},
        {"brokenOff", a, {}, 0},
    };
    for (const auto& [code, bytes, again, count] : read) {
        auto client = clientOf(bytes, again);
        std::vector<std::optional<QByteArray>> contents;
        EXPECT_EQ(codeOf([&] {
                      contents = client.receiveTogether({{"/a", 1}, {"/b", 1}}, {});
                  }),
                  code);
        EXPECT_EQ(std::count(contents.begin(), contents.end(), "a"), count);
        EXPECT_EQ(client.isUsable(), count == 2);
    }
}

TEST(ADBSyncClient, nonsenseIsAnErrorAndNothingIsBelieved) {
    const std::pair<const char*, Bytes> rows[] = {
        {"nonsense", Record("OKAY").zeros(16)},
        {"nonsense", Record("DENT").number(1).number(1).number(1).number(0xFFFFFFFF).zeros(9)},
        {"nonsense", Record("DNT2").zeros(72)},
        {"nonsense", Bytes(20, std::byte{0xFF})},
    };
    for (const auto& [code, bytes] : rows) {
        auto client = clientOf(bytes);
        EXPECT_EQ(codeOf([&] { (void)namesOf(client); }), code);
    }
    const std::pair<const char*, Bytes> files[] = {
        {"syncFailed", Record("FAIL").number(2).text("no")},
        {"nonsense", Record("FAIL").number(0xFFFFFFF0).text("no")},
        {"nonsense", Record("OKAY").number(0)},
        {"nonsense", Record("DATA").number(0) + Record("DATA").number(0)},
    };
    for (const auto& [code, bytes] : files) {
        auto client = clientOf(oneStat + oneStat + bytes);
        EXPECT_EQ(codeOf([&] { (void)received(client); }), code);
        auto sender = clientOf(bytes);
        const bool isEnd = std::string(code) != "nonsense" || bytes.size() > 8;
        EXPECT_EQ(codeOf([&] {
                      (void)sender.send(
                          "/sdcard/a", 0100660, [](std::span<std::byte>) { return std::size_t{0}; },
                          0, [](std::uint64_t) {}, {});
                  }),
                  isEnd ? code : "brokenOff");
    }
    auto client = clientOf({});
    EXPECT_EQ(codeOf([&] { (void)client.stat(QByteArray(2000, 'a'), false, {}); }), "pathTooLong");
}

TEST(ADBShellClient, exitStatusIsTheCommandsOwnOrTheLinkIsLost) {
    const Bytes output = Record("\1").number(3).text("out");
    const Bytes errors = Record("\2").number(3).text("err");
    const Bytes status = Record("\3").number(1).text("\7");
    const Bytes whole = output + errors + status;
    ScriptedConnection phone(whole);
    const ADBCommandResult result = ADBShellClient(phone, true).run("ls", {});
    EXPECT_EQ(result.output, "out");
    EXPECT_EQ(result.errors, "err");
    EXPECT_EQ(result.status, 7);
    EXPECT_EQ(phone.service(), "shell,v2,raw:ls");
    for (std::size_t size = 0; size < whole.size(); ++size) {
        ScriptedConnection cut({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)});
        EXPECT_EQ(codeOf([&] { (void)ADBShellClient(cut, true).run("ls", {}); }), "brokenOff");
    }
    ScriptedConnection endless({}, Record("\1").number(4000).zeros(4000));
    EXPECT_EQ(codeOf([&] { (void)ADBShellClient(endless, true).run("ls", {}); }), "nonsense");
    ScriptedConnection wrong(Record("\3").number(2).zeros(2));
    EXPECT_EQ(codeOf([&] { (void)ADBShellClient(wrong, true).run("ls", {}); }), "nonsense");
}

TEST(ADBShellSession, shellThatEndsOrNeverStopsIsAnErrorAndOfNoMoreUse) {
    const std::pair<const char*, ScriptedConnection> rows[] = {
        {"brokenOff", ScriptedConnection(Record("\1").number(3).text("out"))},
        {"brokenOff", ScriptedConnection(Record("\3").number(1).zeros(1))},
        {"nonsense", ScriptedConnection({}, Record("\1").number(4000).zeros(4000))},
        {"brokenOff", ScriptedConnection(Record("\1").number(20).text("tessary-0:0\n"))},
    };
    for (auto [code, phone] : rows) {
        ADBShellSession session(phone, {});
        EXPECT_EQ(phone.service(), "shell,v2,raw:");
        EXPECT_EQ(codeOf([&] { (void)session.run("'ls'", {}); }), code);
        EXPECT_FALSE(session.isUsable());
    }
}

TEST(ADBShellClient, olderPhonesPrintTheirStatusLast) {
    const std::pair<const char*, int> rows[] = {{"out\ntessary-status:3\n", 3},
                                                {"tessary-status:0\n", 0},
                                                {"tessary-status:9\nno\ntessary-status:1\r\n", 1}};
    for (const auto& [text, status] : rows) {
        ScriptedConnection phone{Bytes(Record(text))};
        EXPECT_EQ(ADBShellClient(phone, false).run("ls", {}).status, status);
        EXPECT_EQ(phone.service(), "exec:ls; echo tessary-status:$?");
    }
    for (const char* text : {"", "out", "tessary-status:", "tessary-status:x\n"}) {
        ScriptedConnection phone{Bytes(Record(text))};
        EXPECT_EQ(codeOf([&] { (void)ADBShellClient(phone, false).run("ls", {}); }), "brokenOff");
    }
}

} // namespace

} // namespace tessary
