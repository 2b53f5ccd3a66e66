#include "phones/IPhoneFixture.h"

#include <sys/stat.h>

#include <thread>

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

using VirtualIPhoneTest = IPhoneFixture;

TEST_F(VirtualIPhoneTest, handshakesFailAsOftenAsTheyShouldAndThenSucceed) {
    VirtualIPhone& phone = plugIn();
    const struct {
        const char* error;
        lockdownd_error_t status;
    } rows[] = {{"PasswordProtected", LOCKDOWN_E_PASSWORD_PROTECTED},
                {"InvalidHostID", LOCKDOWN_E_INVALID_HOST_ID},
                {"", LOCKDOWN_E_PLIST_ERROR}};
    for (const auto& row : rows) {
        phone.log().clear();
        fault([&row](auto& faults) {
            faults.handshakesToFail = 2;
            faults.handshakeError = QString::fromLatin1(row.error);
        });
        lockdownd_error_t status{};
        for (int i = 0; i < 2; ++i) {
            EXPECT_FALSE(handshake(device(), &status)) << row.error;
            EXPECT_EQ(status, row.status) << row.error;
        }
        EXPECT_TRUE(handshake(device(), &status)) << row.error << ' ' << status;
        EXPECT_EQ(phone.requestCount(u"lockdown.StartSession"_s), 3U);
    }
}

TEST_F(VirtualIPhoneTest, aHandshakeIsRefusedForTheRightReason) {
    const struct {
        const char* name;
        bool paired;
        std::function<void(VirtualIPhone&)> prepare;
        lockdownd_error_t status;
    } rows[] = {
        {"locked", true, [](VirtualIPhone& phone) { phone.setLocked(true); },
         LOCKDOWN_E_PASSWORD_PROTECTED},
        {"forgotten", true,
         [](VirtualIPhone& phone) {
             phone.faults().update([](auto& faults) { faults.forgetsHosts = true; });
         },
         LOCKDOWN_E_INVALID_HOST_ID},
        {"asking", false, [](VirtualIPhone& phone) { phone.setTrust(VirtualTrust::asking); },
         LOCKDOWN_E_PAIRING_DIALOG_RESPONSE_PENDING},
        {"denied", false, [](VirtualIPhone& phone) { phone.setTrust(VirtualTrust::denied); },
         LOCKDOWN_E_USER_DENIED_PAIRING},
        {"pairing by itself", false, [](VirtualIPhone&) {}, LOCKDOWN_E_SUCCESS},
    };
    for (const auto& row : rows) {
        VirtualIPhoneConfig made = config();
        made.isPaired = row.paired;
        // Another phone each time: the multiplexer keeps what it was told of one.
        made.udid = u"00008101-"_s + QString::number(&row - rows).rightJustified(16, u'0');
        row.prepare(plugIn(made));
        lockdownd_error_t status{};
        const Lockdown client = handshake(device(), &status);
        EXPECT_EQ(status, row.status) << row.name;
    }
}

TEST_F(VirtualIPhoneTest, aHostWithAnotherKeyGetsNoSession) {
    plugIn();
    QVariantMap wrong = phone_->hostRecord();
    const QVariantMap right = wrong;
    // Its own certificates, under the id of the host that is trusted.
    VirtualIPhoneConfig other = config();
    other.udid = u"00008101-0000000000000009"_s;
    VirtualIPhone stranger(other);
    wrong[u"RootCertificate"_s] = stranger.hostRecord()[u"DeviceCertificate"_s];
    wrong[u"HostCertificate"_s] = wrong[u"RootCertificate"_s];
    phone_->addHost(wrong);
    EXPECT_FALSE(handshake(device()));
    phone_->addHost(right);
    EXPECT_TRUE(handshake(device()));
}

TEST_F(VirtualIPhoneTest, houseArrestOpensWhatAnAppShares) {
    plugIn();
    folder_.write(documents("a.txt"), "a");
    const struct {
        const char* name;
        const char* app;
        const char* command;
        const char* error;
    } rows[] = {
        {"shared", "org.test.notes", "VendDocuments", ""},
        {"from the store", "org.test.notes", "VendContainer", "InstallationLookupFailed"},
        {"not shared", "org.test.closed", "VendDocuments", "InstallationLookupFailed"},
        {"not there", "org.test.none", "VendDocuments", "ApplicationLookupFailed"},
        {"no command", "org.test.notes", "VendEverything", "UnknownCommand"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(open(row.app, row.command).error, row.error) << row.name;
    const Container container = open();
    EXPECT_THAT(list(container, "/Documents"), ElementsAre(".", "..", "a.txt"));
    EXPECT_THAT(list(container, "/Library"), ElementsAre("(failed)"));
    EXPECT_THAT(list(container, "/"), ElementsAre("(failed)"));

    fault([](auto& faults) { faults.houseArrestErrors[u"VendDocuments"_s] = u"Odd"_s; });
    EXPECT_EQ(open().error, "Odd");
    VirtualIPhoneConfig root = config();
    root.documentsAreRoot = true;
    root.apps[1].isDebuggable = true;
    plugIn(root);
    EXPECT_THAT(list(open(), "/"), ElementsAre(".", "..", "a.txt"));
    EXPECT_THAT(list(open("org.test.paint", "VendContainer"), "/"),
                ElementsAre(".", "..", "Documents", "Library", "tmp"));
}

TEST_F(VirtualIPhoneTest, unpluggingEndsEverythingThatIsUnderWay) {
    const QString big = folder_.writeSparse(u"org.test.notes/Documents/big"_s, 64 << 20);
    for (const auto direction :
         {VirtualIPhoneByteFault::Direction::toHost, VirtualIPhoneByteFault::Direction::toPhone}) {
        VirtualIPhone& phone = plugIn();
        const bool reads = direction == VirtualIPhoneByteFault::Direction::toHost;
        const Container container = open();
        std::uint64_t file = 0;
        ASSERT_EQ(afc_file_open(container.afc.get(), reads ? "/Documents/big" : "/Documents/new",
                                reads ? AFC_FOPEN_RDONLY : AFC_FOPEN_WR, &file),
                  AFC_E_SUCCESS);
        fault([direction](auto& faults) {
            faults.byteFault = {direction, 10 << 20, VirtualCut::unplug};
        });
        std::vector<char> chunk(1 << 20);
        std::uint64_t moved = 0;
        std::uint32_t now = 0;
        afc_error_t status = AFC_E_SUCCESS;
        do {
            now = 0;
            status = reads ? afc_file_read(container.afc.get(), file, chunk.data(), 1 << 20, &now)
                           : afc_file_write(container.afc.get(), file, chunk.data(), 1 << 20, &now);
            moved += now;
        } while (status == AFC_E_SUCCESS && now > 0 && moved < (64 << 20));
        EXPECT_LE(moved, 10U << 20);
        EXPECT_GE(moved, 8U << 20);
        EXPECT_FALSE(phone.isPlugged());
        EXPECT_FALSE(device());
        EXPECT_NE(phone.plugInto(*mux_), 0U);
        EXPECT_TRUE(open().afc);
    }
}

TEST_F(VirtualIPhoneTest, aRequestCanBeLostBeforeOrAfterItIsCarriedOut) {
    for (const bool afterwards : {false, true}) {
        plugIn();
        const Container container = open();
        fault([afterwards](auto& faults) {
            faults.requestFault = {u"afc.makeDir"_s, 2, afterwards, VirtualCut::close};
        });
        const std::string name = afterwards ? "/Documents/late" : "/Documents/early";
        EXPECT_EQ(afc_make_directory(container.afc.get(), (name + "1").c_str()), AFC_E_SUCCESS);
        EXPECT_NE(afc_make_directory(container.afc.get(), (name + "2").c_str()), AFC_E_SUCCESS);
        EXPECT_EQ(folder_.has(u"org.test.notes"_s + QString::fromStdString(name) + u'2'),
                  afterwards);
    }
}

TEST_F(VirtualIPhoneTest, delayedRequestsComeLateAndHungOnesEndWithTheCable) {
    VirtualIPhone& phone = plugIn();
    const Container container = open();
    fault([](auto& faults) {
        faults.delay[u"afc.readDir"_s] = std::chrono::milliseconds(200);
        faults.hang.insert(u"afc.makeDir"_s);
    });
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_THAT(list(container, "/Documents"), ElementsAre(".", ".."));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(200));
    const std::jthread cable([&phone] {
        while (phone.requestCount(u"afc.makeDir"_s) == 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        phone.unplug();
    });
    EXPECT_NE(afc_make_directory(container.afc.get(), "/Documents/x"), AFC_E_SUCCESS);
    EXPECT_FALSE(folder_.has(documents("x")));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

TEST_F(VirtualIPhoneTest, aPhoneGoesWhileItIsUsedFromManySides) {
    VirtualIPhone& phone = plugIn();
    folder_.writeSparse(u"org.test.notes/Documents/big"_s, 8 << 20);
    std::atomic<int> opened = 0;
    {
        std::vector<std::jthread> users;
        for (int i = 0; i < 3; ++i)
            users.emplace_back([this, &opened](const std::stop_token& stop) {
                while (!stop.stop_requested()) {
                    const Container container = open();
                    std::uint64_t file = 0;
                    if (container.afc && afc_file_open(container.afc.get(), "/Documents/big",
                                                       AFC_FOPEN_RDONLY, &file) == AFC_E_SUCCESS) {
                        ++opened;
                        std::vector<char> chunk(1 << 20);
                        std::uint32_t got = 1;
                        while (got > 0 && afc_file_read(container.afc.get(), file, chunk.data(),
                                                        1 << 20, &got) == AFC_E_SUCCESS)
                            continue;
                    }
                }
            });
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(2);
        while (std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(std::chrono::milliseconds(150));
            phone.unplug();
            phone.plugInto(*mux_);
        }
    }
    EXPECT_GT(opened, 0);
}

} // namespace
} // namespace tessary
