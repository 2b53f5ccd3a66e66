#include "base/threads/CancellationError.h"
#include "support/Failure.h"
#include "support/PluggedIPhone.h"
#include "support/QtPrinters.h"

#include <QDir>

#include <gtest/gtest.h>

#include <functional>

namespace tessary {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

/// Far below the library's own 30 seconds of patience.
constexpr auto bound = 5s;
constexpr qint64 size = qint64{5} << 19; // two pieces and a half

struct Operation {
    const char* name;
    const char* requests; ///< that it makes
    std::function<void(AFCClient&, const TemporaryFolder&)> run;
};

const QString source = u"source"_s;

const Operation operations[] = {
    {"list", "readDir getFileInfo", [](auto& client, auto&) { (void)client.listContents(u"/"_s); }},
    {"createDirectory", "makeDir", [](auto& client, auto&) { client.createDirectory(u"/x"_s); }},
    {"remove", "removePath readDir getFileInfo",
     [](auto& client, auto&) { client.removePath(u"/tree"_s); }},
    {"rename", "renamePath", [](auto& client, auto&) { client.renamePath(u"/a"_s, u"/b"_s); }},
    {"upload", "fileOpen fileWrite fileClose",
     [](auto& client, auto& here) { client.uploadFile(here.path(source), u"/up"_s); }},
    {"download", "fileOpen fileRead fileClose getFileInfo",
     [](auto& client, auto& here) {
         (void)client.downloadFile(u"/a"_s, here.path(u"target/a"_s), size);
     }},
    {"sample", "fileOpen fileRead",
     [](auto& client, auto&) { (void)client.readSampleBytes(u"/a"_s, 100); }},
    {"downloadFolder", "readDir getFileInfo fileOpen fileRead fileClose",
     [](auto& client, auto& here) {
         (void)client.downloadDirectory(u"/"_s, here.path(u"target"_s));
     }},
    {"uploadFolder", "fileOpen fileWrite fileClose",
     [](auto& client, auto& here) {
         (void)client.uploadDirectory(here.path(u"folder"_s), u"/tree"_s);
     }},
};

/// Fails soon and in plain words, and the client is of no more use.
void expectLostSoon(AFCClient& client, const std::function<void()>& call) {
    const auto begin = std::chrono::steady_clock::now();
    const QString failure = failureOf(call);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, bound);
    EXPECT_TRUE(failure.startsWith(u"AFC Error: "_s)) << failure.toStdString();
    EXPECT_TRUE(client.isLost());
    EXPECT_EQ(failureOf([&] { (void)client.listContents(u"/"_s); }),
              u"AFC Error: serviceNotConnected (code 11)"_s);
}

TEST(AFCUnplug, endsEveryOperationAtEveryRequestSoonAndLeavesNoPart) {
    for (const Operation& operation : operations) {
        for (const QString& request : QString::fromLatin1(operation.requests).split(u' ')) {
            for (const bool afterwards : {false, true}) {
                SCOPED_TRACE(std::string(operation.name) + " at " + request.toStdString() +
                             (afterwards ? ", afterwards" : ""));
                PluggedIPhone iphone;
                const TemporaryFolder here;
                here.write(source, QByteArray(size, 's'));
                here.write(u"folder/one"_s, QByteArray(size, '1'));
                here.makeFolder(u"target"_s);
                iphone.write(u"a"_s, QByteArray(size, 'a'));
                iphone.write(u"tree/b"_s, "b");
                const auto client = iphone.open();
                iphone.faults([&](VirtualIPhoneFaults& faults) {
                    faults.requestFault = {u"afc."_s + request, 1, afterwards, VirtualCut::unplug};
                });
                expectLostSoon(*client, [&] { operation.run(*client, here); });
                // No file, or a whole one; nothing under a temporary name.
                for (const QString& name : here.names(u"target"_s)) {
                    EXPECT_TRUE(name == u"a"_s || name == u"tree"_s) << name.toStdString();
                }
                EXPECT_TRUE(!here.has(u"target/a"_s) || here.read(u"target/a"_s).size() == size);
            }
        }
    }
}

TEST(AFCUnplug, inTheMiddleOfTheDataEndsTransfersSoon) {
    using Direction = VirtualDirection;
    for (const auto cut : {VirtualCut::unplug, VirtualCut::close}) {
        for (const std::uint64_t bytes : {1, 39, 41, 1'000'000, 1'048'616, 2'000'000}) {
            SCOPED_TRACE(bytes);
            for (const auto direction : {Direction::toHost, Direction::toPhone}) {
                PluggedIPhone iphone;
                const TemporaryFolder here;
                here.write(source, QByteArray(size, 's'));
                iphone.write(u"a"_s, QByteArray(size, 'a'));
                iphone.write(u"up"_s, "older");
                const auto client = iphone.open();
                iphone.faults([&](VirtualIPhoneFaults& faults) {
                    faults.byteFault = {direction, bytes, cut};
                });
                expectLostSoon(*client, [&] {
                    if (direction == Direction::toHost)
                        (void)client->downloadFile(u"/a"_s, here.path(u"a"_s), size);
                    else
                        client->uploadFile(here.path(source), u"/up"_s);
                });
                EXPECT_EQ(here.names(), QStringList(source));
                EXPECT_EQ(iphone.read(u"up"_s), "older");
            }
        }
    }
}

TEST(AFCUnplug, inTheMiddleOfAListingIsAnError) {
    for (const std::uint64_t bytes : {41, 45, 46, 47, 100}) { // the names end at 47
        PluggedIPhone iphone;
        iphone.write(u"a"_s, "a");
        const auto client = iphone.open();
        iphone.faults([&](VirtualIPhoneFaults& faults) {
            faults.byteFault = {VirtualDirection::toHost, bytes, VirtualCut::close};
        });
        EXPECT_NE(failureOf([&] { (void)client->listContents(u"/"_s); }), u"nothing was thrown"_s)
            << bytes;
    }
}

TEST(AFCUnplug, whileOpeningIsAnError) {
    const struct {
        const char* request;
        const char* error;
    } rows[] = {{"lockdown.StartSession", "Device not found: "},
                {"lockdown.StartService", "House Arrest error: "},
                {"houseArrest.VendDocuments", "AFC Error: "},
                {"afc.readDir", "AFC Error: "}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.request);
        PluggedIPhone iphone;
        iphone.faults([&](VirtualIPhoneFaults& faults) {
            faults.requestFault = {QString::fromLatin1(row.request), 1, false, VirtualCut::unplug};
        });
        const auto begin = std::chrono::steady_clock::now();
        const QString failure = failureOf([&] { (void)iphone.open()->listContents(u"/"_s); });
        EXPECT_LT(std::chrono::steady_clock::now() - begin, bound);
        EXPECT_TRUE(failure.startsWith(QString::fromLatin1(row.error))) << failure.toStdString();
    }
}

} // namespace
} // namespace tessary
