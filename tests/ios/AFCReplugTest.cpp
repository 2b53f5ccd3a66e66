#include "ios/files/AFCFileSystem.h"

#include "support/IPhoneFiles.h"
#include "support/ManyBytes.h"
#include "support/QtPrinters.h"
#include "support/Soon.h"

#include <gmock/gmock.h>

#include <functional>

namespace tessary {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using testing::AnyOf;
using testing::StartsWith;

constexpr qint64 size = qint64{5} << 19;

struct FilledPhone : IPhoneFiles {
    FilledPhone() {
        write(u"a"_s, manyBytes(size));
        write(u"tree/b"_s, "b");
    }
};

struct Operation {
    const char* name;
    const char* requests; ///< that it makes
    std::function<void(IPhoneFiles&)> run;
};

/// What was listed before the cable was pulled.
FileItem listed(const QString& name, bool isFolder) {
    return {name, u"/"_s + name, isFolder, isFolder ? 0 : size, std::nullopt};
}

const Operation operations[] = {
    {"list", "readDir getFileInfo getDeviceInfo", [](auto& phone) { (void)phone.names(u"/"_s); }},
    {"find", "getFileInfo", [](auto& phone) { (void)phone.files.find(u"/a"_s, {}); }},
    {"makeFolder", "getFileInfo makeDir",
     [](auto& phone) { phone.files.makeFolder(u"/"_s, u"x"_s, {}); }},
    {"remove", "getFileInfo removePath",
     [](auto& phone) { phone.files.remove(listed(u"a"_s, false), {}); }},
    {"removeTree", "getFileInfo removePath readDir",
     [](auto& phone) { phone.files.removeTree(listed(u"tree"_s, true), {}); }},
    {"rename", "getFileInfo renamePath",
     [](auto& phone) {
         phone.files.rename(listed(u"a"_s, false), u"b"_s, TakenName::refused, {});
     }},
    {"setModified", "getFileInfo setFileModTime",
     [](auto& phone) {
         phone.files.setModified(listed(u"a"_s, false), QDateTime::currentDateTime(), {});
     }},
    {"write", "getFileInfo fileOpen fileWrite fileClose setFileModTime",
     [](auto& phone) {
         phone.put({u"/"_s, u"up"_s, size, QDateTime::currentDateTime()}, manyBytes(size));
     }},
    {"append", "getFileInfo fileOpen fileSeek fileWrite fileClose setFileModTime",
     [](auto& phone) {
         phone.files.append(listed(u"a"_s, false), size / 2,
                            {u"/"_s, u"a"_s, size, QDateTime::currentDateTime(), true},
                            sourceOf(manyBytes(size).mid(size / 2)), {}, {});
     }},
    {"read", "fileOpen fileRead fileClose",
     [](auto& phone) { phone.files.read(listed(u"a"_s, false), {}, [](ByteView) {}, {}); }},
    {"freeBytes", "getDeviceInfo", [](auto& phone) { (void)phone.files.freeBytes(u"/"_s, {}); }},
};

const auto isLost =
    AnyOf(StartsWith("unplugged"), StartsWith("notConnected"), StartsWith("brokenOff"));

TEST(AFCReplug, pullingTheCableEndsEveryOperationAtEveryRequestSoon) {
    for (const Operation& operation : operations) {
        for (const QString& request : QString::fromLatin1(operation.requests).split(u' ')) {
            for (const bool afterwards : {false, true}) {
                SCOPED_TRACE(std::string(operation.name) + " at " + request.toStdString() +
                             (afterwards ? ", afterwards" : ""));
                FilledPhone iphone;
                (void)iphone.files.freeBytes(u"/"_s, {}); // opens the connection
                iphone.faults([&](VirtualIPhoneFaults& faults) {
                    faults.requestFault = {u"afc."_s + request, 1, afterwards, VirtualCut::unplug};
                });
                const auto begin = std::chrono::steady_clock::now();
                EXPECT_THAT(errorOf([&] { operation.run(iphone); }), isLost);
                EXPECT_LT(std::chrono::steady_clock::now() - begin, soon)
                    << "the library has 30 seconds";
            }
        }
    }
}

TEST(AFCReplug, whatWasNotBegunIsDoneOnANewConnectionAfterAReplug) {
    for (const Operation& operation : operations) {
        SCOPED_TRACE(operation.name);
        FilledPhone iphone;
        (void)iphone.names(u"/"_s);
        iphone.phone.unplug();
        iphone.phone.plugInto(iphone.mux);
        EXPECT_EQ(errorOf([&] { operation.run(iphone); }), "nothing was thrown");
    }
}

/// As many readers of a mounted phone may have waited.
TEST(AFCReplug, aPhoneThatIsGoneIsNotLookedForByAHelperEachTime) {
    IPhoneFiles iphone;
    (void)iphone.names(u"/"_s);
    iphone.phone.unplug();
    const auto begin = std::chrono::steady_clock::now();
    for (int n = 0; n < 300; ++n)
        EXPECT_THAT(errorOf([&] { (void)iphone.files.find(u"/a"_s, {}); }), isLost);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 3 * soon / 2);
}

TEST(AFCReplug, aChangeWhoseAnswerWasLostIsNotMadeTwice) {
    for (const Operation& operation : operations) {
        for (const QString& request : QString::fromLatin1(operation.requests).split(u' ')) {
            if (!request.startsWith(u"remove") && !request.startsWith(u"rename") &&
                !request.startsWith(u"make") && request != u"fileWrite"_s)
                continue;
            SCOPED_TRACE(operation.name);
            FilledPhone iphone;
            (void)iphone.names(u"/"_s);
            iphone.faults([&](VirtualIPhoneFaults& faults) {
                faults.requestFault = {u"afc."_s + request, 1, true, VirtualCut::close};
            });
            EXPECT_THAT(errorOf([&] { operation.run(iphone); }), StartsWith("brokenOff"));
            EXPECT_EQ(iphone.count(("afc." + request.toStdString()).c_str()), 1U);
        }
    }
}

TEST(AFCReplug, aCutInTheMiddleOfTheDataIsAnErrorAndNeverAShorterFile) {
    using Direction = VirtualDirection;
    for (const auto cut : {VirtualCut::unplug, VirtualCut::close}) {
        for (const std::uint64_t bytes : {1, 39, 41, 131'111, 131'113, 1'000'000, 2'000'000}) {
            for (const auto direction : {Direction::toHost, Direction::toPhone}) {
                SCOPED_TRACE(bytes);
                IPhoneFiles iphone;
                iphone.write(u"a"_s, manyBytes(size));
                const FileItem item = iphone.item(u"/a"_s);
                iphone.faults([&](VirtualIPhoneFaults& faults) {
                    faults.byteFault = {direction, bytes, cut};
                });
                const std::string error = errorOf([&] {
                    if (direction == Direction::toHost)
                        iphone.files.read(item, {}, [](ByteView) {}, {});
                    else
                        iphone.put({u"/"_s, u"up"_s, size, {}}, manyBytes(size));
                });
                // A connection that only closed, before anything was changed, is made anew.
                const bool mayGoOn = cut == VirtualCut::close && bytes <= 41;
                EXPECT_TRUE(testing::Value(error, isLost) ||
                            (mayGoOn && error == "nothing was thrown"))
                    << error;
            }
        }
    }
}

TEST(AFCReplug, whereverAnAppendIsCutThePartIsABeginningOfTheFileAndIsGoneOnWith) {
    const QByteArray whole = manyBytes(size);
    constexpr qint64 kept = size / 2;
    IPhoneFiles iphone;
    const auto append = [&] {
        return errorOf([&] {
            iphone.files.append(iphone.item(u"/a"_s), kept, {u"/"_s, u"a"_s, size, {}, true},
                                sourceOf(whole.mid(kept)), {}, {});
        });
    };
    for (const auto direction : {VirtualDirection::toPhone, VirtualDirection::toHost})
        for (const std::uint64_t bytes : {100, 200, 300, 400, 131'500, 131'600, 700'000}) {
            SCOPED_TRACE(bytes);
            iphone.write(u"a"_s, whole.first(kept + 1000));
            iphone.faults([&](VirtualIPhoneFaults& faults) {
                faults.byteFault = {direction, bytes, VirtualCut::close};
            });
            const std::string error = append();
            iphone.faults([](VirtualIPhoneFaults& faults) { faults = {}; });
            const QByteArray there = iphone.read(u"a"_s);
            EXPECT_TRUE(whole.startsWith(there) && there.size() >= kept + 1000) << there.size();
            EXPECT_TRUE(error != "nothing was thrown" || there == whole);
            EXPECT_EQ(append(), "nothing was thrown");
            EXPECT_TRUE(iphone.read(u"a"_s) == whole);
        }
}

TEST(AFCReplug, aListingThatIsCutIsAnErrorOrWholeAndNeverShorter) {
    for (std::uint64_t bytes = 1; bytes < 700; bytes += 7) {
        IPhoneFiles iphone;
        for (const QString& name : {u"aa"_s, u"bb"_s, u"cc"_s})
            iphone.write(name, "1");
        (void)iphone.files.freeBytes(u"/"_s, {});
        iphone.faults([&](VirtualIPhoneFaults& faults) {
            faults.byteFault = {VirtualDirection::toHost, bytes, VirtualCut::close};
        });
        Listing listing;
        const std::string error = errorOf([&] { listing = listAll(iphone.files, u"/"_s, {}); });
        EXPECT_TRUE(error.starts_with("brokenOff") || listing.items.size() == 3)
            << bytes << ' ' << error;
        EXPECT_TRUE(listing.unreadable.empty()) << bytes;
    }
}

} // namespace
} // namespace tessary
