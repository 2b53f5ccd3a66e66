// Phones that send what breaks or fills whoever parses it, and helpers that die or stay silent.

#include "ios/files/AFCFileSystem.h"
#include "ios/files/AFCSteps.h"

#include "base/threads/CancellationError.h"
#include "platform/process/ChildChannel.h"
#include "platform/process/SharedMemory.h"
#include "support/IPhoneFiles.h"
#include "support/QtPrinters.h"
#include "support/UnderAttack.h"

#include <QtEndian>

#include <gmock/gmock.h>

#include <csignal>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace tessary {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using testing::AnyOf;
using testing::StartsWith;

/// A property list behind its length.
QByteArray message(const QByteArray& body, std::optional<quint32> length = std::nullopt) {
    QByteArray head(4, Qt::Uninitialized);
    qToBigEndian(length.value_or(static_cast<quint32>(body.size())), head.data());
    return head + body;
}

QByteArray document(const QByteArray& content) {
    return "<?xml version=\"1.0\"?><plist version=\"1.0\">" + content + "</plist>";
}

VirtualRawAnswer endlessList() {
    return {message(document("<dict><key>Status</key><string>BrowsingApplications</string>"
                             "<key>CurrentAmount</key><integer>1</integer><key>CurrentList</key>"
                             "<array><string>" +
                             QByteArray(50'000, 'x') + "</string></array></dict>")),
            true};
}

const struct {
    const char* name;
    VirtualRawAnswer answer;
} hostileAnswers[] = {
    {"deep", {message(document(QByteArray("<array>").repeated(600'000)))}},
    {"deep dictionaries", {message(document(QByteArray("<dict><key>a</key>").repeated(600'000)))}},
    {"wide",
     {message(document("<array>" + QByteArray("<true/>").repeated(3'000'000) + "</array>"))}},
    {"no property list", {message(QByteArray(100'000, '<'))}},
    {"cut", {message(document("<dict>"), 1000)}},
    {"binary with offsets that lead nowhere",
     {message("bplist00" + QByteArray(16, '\xff') + QByteArray(6, '\0') + "\x08\x08" +
              QByteArray(24, '\xff'))}},
    {"an announced length beyond all memory", {message("<plist>", 0xFFFFFFFFU)}},
    {"endless", endlessList()},
};

const auto isRefused =
    AnyOf(StartsWith("nonsense"), StartsWith("noAnswer"), StartsWith("brokenOff"),
          StartsWith("sessionEnded"), StartsWith("notReachable"), StartsWith("notTrusted"));

IPhoneHelper::Limits shortPatience() {
    IPhoneHelper::Limits limits;
    limits.patience = 6s;
    return limits;
}

/// A phone beside the hostile one.
class HostileIPhoneTest : public testing::Test {
protected:
    HostileIPhoneTest() {
        honest_.plugInto(hostile_.mux);
    }
    void send(const QString& request, const VirtualRawAnswer& answer) {
        hostile_.faults([&](VirtualIPhoneFaults& faults) {
            faults.rawAnswers = {{request, answer}};
        });
    }

    IPhoneFiles hostile_;
    FaultyIPhone honest_{{.udid = u"00008101-000A1B2C3D4E0002"_s, .name = u"Honest"_s}};
};

TEST_F(HostileIPhoneTest, whateverItSendsIsOneErrorOfItsOwn) {
    for (const auto& row : hostileAnswers) {
        for (const QString& request : {u"lockdown.QueryType"_s, u"lockdown.GetValue"_s,
                                       u"lockdown.StartSession"_s, u"installationProxy.Browse"_s}) {
            SCOPED_TRACE(row.name + (" at " + request.toStdString()));
            send(request, row.answer);
            const auto begin = std::chrono::steady_clock::now();
            std::jthread beside(
                [&] { EXPECT_EQ(askIPhoneFacts(honest_.config().udid, {}).name, u"Honest"_s); });
            const std::string error =
                errorOf([&] { (void)askIPhoneApps(hostile_.udid(), {}, shortPatience()); });
            // What is no list of apps may be an empty one to the library.
            const bool mayBeNone =
                request == u"installationProxy.Browse"_s || request == u"lockdown.GetValue"_s;
            EXPECT_TRUE(testing::Value(error, isRefused) ||
                        (mayBeNone && error == "nothing was thrown"))
                << error;
            EXPECT_LT(std::chrono::steady_clock::now() - begin, 2 * soon);
        }
    }
    hostile_.faults([](VirtualIPhoneFaults& faults) { faults.rawAnswers.clear(); });
    EXPECT_EQ(askIPhoneApps(hostile_.udid(), {}).size(), 1U);
}

TEST_F(HostileIPhoneTest, itsFilesAreOneErrorToo) {
    for (const auto& row : hostileAnswers) {
        SCOPED_TRACE(row.name);
        for (const QString& request : {u"houseArrest.VendDocuments"_s, u"afc.readDir"_s}) {
            send(request, row.answer);
            AFCFileSystem files(hostile_.identity(), IPhoneFiles::notes(), hostile_.queue,
                                {.afterStop = 100ms, .ofSilence = 5s});
            const auto begin = std::chrono::steady_clock::now();
            EXPECT_NE(errorOf([&] { (void)listAll(files, u"/"_s, {}); }), "nothing was thrown");
            EXPECT_LT(std::chrono::steady_clock::now() - begin, 2 * soon);
        }
    }
    hostile_.faults([](VirtualIPhoneFaults& faults) { faults.rawAnswers.clear(); });
    EXPECT_EQ(hostile_.names(u"/"_s), QStringList());
}

TEST_F(HostileIPhoneTest, anEndlessAppListTakesNoMemoryHereAndEndsByItself) {
    send(u"installationProxy.Browse"_s, endlessList());
    const std::size_t before = usedMemory();
    EXPECT_THAT(errorOf([&] { (void)askIPhoneApps(hostile_.udid(), {}, shortPatience()); }),
                isRefused);
    EXPECT_LT(usedMemory(), before + (64 << 20)); // the phone itself is in this process
}

TEST_F(HostileIPhoneTest, aSilentOneIsLeftAtOnceByWhoStops) {
    for (const QString& request : {u"lockdown.QueryType"_s, u"installationProxy.Browse"_s}) {
        hostile_.faults([&](VirtualIPhoneFaults& faults) { faults.hang = {request}; });
        std::stop_source stop;
        std::chrono::steady_clock::time_point asked;
        const std::size_t before = hostile_.count(request.toLatin1().constData());
        std::jthread stopper([&] {
            while (hostile_.count(request.toLatin1().constData()) == before)
                std::this_thread::sleep_for(1ms);
            asked = std::chrono::steady_clock::now();
            stop.request_stop();
        });
        EXPECT_THROW((void)askIPhoneApps(hostile_.udid(), stop.get_token()), CancellationError);
        stopper.join();
        EXPECT_LT(std::chrono::steady_clock::now() - asked, soon);
    }
}

TEST(IPhoneHelper, thatCannotBeUsedIsAnError) {
    const struct {
        const char* program;
        const char* error;
    } rows[] = {
        {"", "notReachable, caused by helper (not installed)"},
        {"/nonexistent", "notReachable, caused by helper ("},
        {"/bin/true", "nonsense, caused by helper (ended)"},
        {TESSARY_SILENT_HELPER, "noAnswer, caused by helper (silent)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.program);
        IPhoneHelper::Limits limits;
        limits.program = QString::fromLatin1(row.program);
        limits.patience = 2s;
        const auto begin = std::chrono::steady_clock::now();
        EXPECT_THAT(errorOf([&] {
                        IPhoneHelper helper(u"x"_s, limits);
                        (void)helper.askFor<IPhoneFacts>(HelperOperation::facts);
                    }),
                    StartsWith(row.error));
        EXPECT_LT(std::chrono::steady_clock::now() - begin, soon);
    }
}

/// One that a phone has taken over says what no phone's library would.
TEST(IPhoneHelper, whatItSaysMayHaveNoCause) {
    const TemporaryFolder folder;
    QByteArray answers;
    for (const QByteArray& answer : {helperArguments(false, true, u"/"_s),
                                     helperArguments(false, false, Error(PhoneError::notFound)),
                                     helperArguments(false, true, std::optional(AFCFileInfo()))}) {
        const auto length = static_cast<quint32>(answer.size());
        answers.append(reinterpret_cast<const char*>(&length), sizeof length).append(answer);
    }
    folder.write(u"helper.says"_s, answers);
    IPhoneHelper::Limits limits;
    limits.program = folder.write(u"helper"_s, "#!/bin/sh\ncat $0.says >&0\nexec sleep 60\n");
    QFile::setPermissions(limits.program, QFile::ReadOwner | QFile::ExeOwner);
    const AFCSession::Opened opened{
        std::make_shared<AFCLink>(u"x"_s, u"y"_s, limits, std::stop_token()), {}, {}, {}};
    EXPECT_EQ(errorOf([&] { (void)namesIn(opened, u"/a"_s); }),
              "notAFolder (/a), caused by notFound");
}

/// The whole session is stopped for longer than an answer may take: nobody was silent.
TEST(IPhoneHelper, timeInWhichNothingRunsIsNoSilence) {
    const pid_t asker = fork();
    if (asker == 0) {
        ChildChannel late(u"/bin/sh"_s,
                          {u"-c"_s, u"head -c 5; kill -STOP $PPID; sleep 6; kill -CONT $PPID; "
                                    "sleep 0.5; printf '\\1\\0\\0\\0x' >&0"_s});
        _exit(static_cast<int>(late.ask("x", 1, 4s).outcome));
    }
    int status = 0;
    ASSERT_EQ(waitpid(asker, &status, 0), asker);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), static_cast<int>(ChildChannel::Outcome::answered));
}

TEST(IPhoneHelper, refusesWhatIsNoRequest) {
    PluggedIPhone iphone;
    const SharedMemory content(contentMemory);
    const int inherited[] = {content.descriptor()};
    ChildChannel helper(installedHelper(u"tessary-iphone"_s),
                        {QString::number(helperVersion), iphone.udid()}, inherited);
    for (const char* request : {"", "ff", "02", "0d00000000ffffffff", "0dffffffff00000001"}) {
        const auto answer = helper.ask(QByteArray::fromHex(request), 1000, 10s);
        ASSERT_EQ(answer.outcome, ChildChannel::Outcome::answered) << request;
        EXPECT_FALSE(answer.message.at(1)) << request;
    }
}

TEST(IPhoneHelper, anAnswerThatIsTooLongIsNotTaken) {
    PluggedIPhone iphone({.name = QString(1000, u'x')});
    EXPECT_EQ(askIPhoneFacts(iphone.udid(), {}).name, QString(256, u'x'));
    IPhoneHelper::Limits limits;
    limits.longestAnswer = 16;
    EXPECT_EQ(errorOf([&] { (void)askIPhoneFacts(iphone.udid(), {}, limits); }),
              "nonsense, caused by helper (too long an answer)");
}

TEST(IPhoneHelper, thatWasKilledIsAnErrorAndReplacedByTheNextCall) {
    IPhoneFiles iphone;
    iphone.write(u"a"_s, "1");
    AFCLink link(iphone.udid(), IPhoneFiles::bundleId, {}, {});
    ASSERT_EQ(kill(link.processId(), SIGKILL), 0);
    EXPECT_EQ(errorOf([&] { (void)link.readNames(u"/"_s); }), "nonsense, caused by helper (ended)");
    EXPECT_TRUE(link.isLost());
    EXPECT_EQ(errorOf([&] { link.makeDirectory(u"/Documents/x"_s); }), "brokenOff");
    EXPECT_EQ(iphone.names(u"/"_s), QStringList(u"a"_s));
}

} // namespace
} // namespace tessary
