#include "phones/PhoneFixture.h"

namespace tessary {
namespace {

/// What a phone refuses.
class MTPResponderRules : public PhoneFixture {
protected:
    static constexpr std::uint16_t ok = 0x2001;

    MTPResponderRules() {
        phone().write(QStringLiteral("file"), "content");
        phone().write(QStringLiteral("folder/inner"), "inner");
    }
    /// A session with handles for "file" and "folder".
    void openAndList() {
        host().openSession();
        const auto listed = host().handles(storage);
        ASSERT_EQ(listed.size(), 2U);
        file_ = listed[0];
        folder_ = listed[1];
    }

    std::uint32_t file_ = 0;
    std::uint32_t folder_ = 0;
};

TEST_F(MTPResponderRules, onlyDeviceInfoAndOpenSessionComeWithoutASession) {
    for (const std::uint16_t operation :
         std::initializer_list<std::uint16_t>{0x1003, 0x1004, 0x1007, 0x1009, 0x1015, 0x9999})
        EXPECT_EQ(host().run(operation, {1}).code, 0x2003) << operation;
    EXPECT_EQ(host().runOut(0x100C, {storage, root}, RawHost::objectInfo(u"x", 1)).code, 0x2003);
    EXPECT_EQ(host().run(0x1001).code, ok);
    EXPECT_EQ(host().run(0x1002, {0}).code, 0x201D);
    EXPECT_EQ(host().run(0x1002).code, 0x201D);
    host().openSession();
    EXPECT_EQ(host().run(0x1002, {1}).code, 0x201E);
    EXPECT_EQ(host().run(0x1003).code, ok);
    EXPECT_EQ(host().run(0x1004).code, 0x2003);
}

TEST_F(MTPResponderRules, transactionIDsRiseAndOpenSessionCountsAnew) {
    host().transactionID = 500;
    host().openSession();
    host().transactionID = 500;
    EXPECT_EQ(host().run(0x1004).code, 0x2004) << "the one of OpenSession";
    host().transactionID = 600;
    EXPECT_EQ(host().run(0x1004).code, ok);
    host().transactionID = 600;
    const RawHost::Answer repeated = host().run(0x1004);
    EXPECT_EQ(repeated.code, 0x2004);
    EXPECT_EQ(repeated.transactionID, 601U);
    EXPECT_FALSE(repeated.hasData);
    host().transactionID = 0xFFFFFFFE;
    EXPECT_EQ(host().run(0x1004).code, 0x2004);
    // A host that knows nothing of this session:
    host().transactionID = 0;
    EXPECT_EQ(host().run(0x1002, {1}).code, 0x201E);
    EXPECT_EQ(host().run(0x1003).code, ok);
}

TEST_F(MTPResponderRules, parametersAreChecked) {
    openAndList();
    struct Row {
        const char* name;
        std::uint16_t operation;
        std::initializer_list<std::uint32_t> parameters;
        std::uint16_t code;
    };
    const Row rows[] = {
        {"unknown operation", 0x9999, {}, 0x2005},
        {"storage that is none", 0x1005, {0x00030001}, 0x2008},
        {"missing storage", 0x1005, {}, 0x201D},
        {"handles of a storage that is none", 0x1007, {0x00030001, 0, root}, 0x2008},
        {"handles by format", 0x1007, {storage, 0x3801, root}, 0x2014},
        {"handles in a file", 0x1007, {storage, 0, file_}, 0x201A},
        {"handles in nothing", 0x1007, {storage, 0, 77}, 0x2009},
        {"facts of nothing", 0x1008, {77}, 0x2009},
        {"content of nothing", 0x1009, {77}, 0x2009},
        {"content of a folder", 0x1009, {folder_}, 0x2009},
        {"part beyond the end", 0x101B, {file_, 8, 1}, 0x201D},
        {"part with too few parameters", 0x101B, {file_, 8}, 0x201D},
        {"deletion of nothing", 0x100B, {77, 0}, 0x2009},
        {"deletion of everything", 0x100B, {root, 0}, 0x2009},
        {"deletion by format", 0x100B, {file_, 0x3000}, 0x2014},
        {"move into a file", 0x1019, {folder_, storage, file_}, 0x201A},
        {"move into itself", 0x1019, {folder_, storage, folder_}, 0x201A},
        {"move to no storage", 0x1019, {file_, 0x00020001, root}, 0x2008},
        {"property that is none", 0x9803, {file_, 0xDC99}, 0xA801},
        {"device property that is none", 0x1015, {0x5002}, 0x200A},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ASSERT_EQ(host().command(row.operation, row.parameters), usb::success);
        const RawHost::Answer answer = host().answer();
        EXPECT_EQ(answer.code, row.code);
        EXPECT_FALSE(answer.hasData);
    }
}

TEST_F(MTPResponderRules, whatCannotBeACommandHaltsThePipe) {
    struct Row {
        const char* name;
        Bytes sent;
    };
    const Row rows[] = {
        {"data where a command is due", RawHost::container(2, 0x1004, 1, Bytes(4))},
        {"response", RawHost::container(3, 0x2001, 1, {})},
        {"unknown type", RawHost::container(9, 0x1004, 1, {})},
        {"length that promises more", RawHost::container(1, 0x1004, 1, {}, 16)},
        {"length that promises less", RawHost::container(1, 0x1005, 1, Bytes(4), 12)},
        {"half a parameter", RawHost::container(1, 0x1005, 1, Bytes(2))},
        {"six parameters", RawHost::container(1, 0x1005, 1, Bytes(24))},
        {"eleven bytes", Bytes(11)},
    };
    Bytes bytes;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ASSERT_EQ(host().write(row.sent), usb::success);
        EXPECT_EQ(host().read(bytes), usb::pipeStalled);
        EXPECT_EQ(host().read(bytes), usb::pipeStalled) << "until it is cleared";
        EXPECT_EQ(host().pipes().clearPipeStallBothEnds(1), usb::success);
        EXPECT_EQ(host().run(0x1001).code, ok);
    }
    EXPECT_EQ(phone().android.needlessHaltClears(), 0U);
    EXPECT_EQ(host().pipes().clearPipeStallBothEnds(1), usb::success);
    EXPECT_EQ(phone().android.needlessHaltClears(), 1U);
}

TEST_F(MTPResponderRules, dataPhasesMustFitTheirCommand) {
    host().openSession();
    struct Row {
        const char* name;
        Bytes sent;
        std::uint16_t code;
    };
    const Bytes info = RawHost::objectInfo(u"new", 1);
    const std::uint32_t first = host().transactionID + 1;
    const Row rows[] = {
        {"a command instead", RawHost::container(1, 0x1004, first, {}), 0x2002},
        {"another operation", RawHost::container(2, 0x100D, first + 1, info), 0x2002},
        {"another transaction", RawHost::container(2, 0x100C, 999, info), 0x2004},
        {"a transfer that ends early", RawHost::container(2, 0x100C, first + 3, info, 99), 0x2007},
        {"a transfer that is too long", RawHost::container(2, 0x100C, first + 4, info, 20), 0x2002},
        {"a dataset that is too short", RawHost::container(2, 0x100C, first + 5, Bytes(51)),
         0x201D},
        {"a dataset that no phone would hold",
         RawHost::container(2, 0x100C, first + 6, Bytes(70'000)), 0x201D},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ASSERT_EQ(host().command(0x100C, {storage, root}), usb::success);
        ASSERT_EQ(host().write(row.sent), usb::success);
        EXPECT_EQ(host().answer().code, row.code);
    }
    // A type that cannot be data halts the pipe that the host is busy with.
    ASSERT_EQ(host().command(0x100C, {storage, root}), usb::success);
    ASSERT_EQ(host().write(RawHost::container(4, 0x100C, host().transactionID, {})), usb::success);
    Bytes bytes;
    EXPECT_EQ(host().read(bytes), usb::pipeStalled);
    EXPECT_EQ(host().pipes().clearPipeStallBothEnds(1), usb::success);
    ASSERT_EQ(host().command(0x100C, {storage, root}), usb::success);
    EXPECT_EQ(host().write(RawHost::container(4, 0x100C, host().transactionID, Bytes(4 << 20))),
              usb::pipeStalled);
    EXPECT_EQ(host().pipes().clearPipeStallBothEnds(2), usb::success);
    EXPECT_EQ(host().run(0x1004).code, ok);
    EXPECT_EQ(phone().names(), (QStringList{QStringLiteral("file"), QStringLiteral("folder")}));
}

TEST_F(MTPResponderRules, headerOfADataPhaseMayTravelAlone) {
    host().openSession();
    ASSERT_EQ(host().command(0x100C, {storage, root}), usb::success);
    const Bytes info = RawHost::objectInfo(u"new", 1);
    const Bytes whole = RawHost::container(2, 0x100C, host().transactionID, info);
    ASSERT_EQ(host().write(ByteView(whole).first(12)), usb::success);
    ASSERT_EQ(host().write(info), usb::success);
    EXPECT_EQ(host().answer().code, ok);
}

TEST_F(MTPResponderRules, uploadsAreChecked) {
    openAndList();
    const auto announce = [&](std::uint32_t id, std::uint32_t parent, const Bytes& info) {
        return host().runOut(0x100C, {id, parent}, info).code;
    };
    EXPECT_EQ(host().runOut(0x100D, {}, Bytes(1)).code, 0x2015) << "nothing was announced";
    EXPECT_EQ(announce(0x00030001, root, RawHost::objectInfo(u"x", 1)), 0x2008);
    EXPECT_EQ(announce(storage, 77, RawHost::objectInfo(u"x", 1)), 0x201A);
    EXPECT_EQ(announce(storage, file_, RawHost::objectInfo(u"x", 1)), 0x201A);
    EXPECT_EQ(announce(storage, root, RawHost::objectInfo(u"file", 1)), 0x2002) << "it exists";
    EXPECT_EQ(announce(storage, root, RawHost::objectInfo(u"folder", 0, 0x3001)), 0x2002);
    EXPECT_EQ(upload(u"whole", Bytes(5000)).code, ok);
    EXPECT_EQ(host().runOut(0x100D, {}, Bytes(1)).code, 0x2015) << "announced once, sent once";
    for (const std::size_t size : {4999U, 5001U, 0U}) {
        ASSERT_EQ(announce(storage, root, RawHost::objectInfo(u"other", 5000)), ok);
        EXPECT_EQ(host().runOut(0x100D, {}, Bytes(size)).code, 0x2007) << size;
    }
    EXPECT_EQ(phone().content(QStringLiteral("other")), QByteArray());

    VirtualStorage settings = phone().android.storages().at(0);
    settings.free = 1000;
    phone().android.setStorage(0, settings);
    EXPECT_EQ(announce(storage, root, RawHost::objectInfo(u"large", 1001)), 0x200C);
    EXPECT_EQ(upload(u"fits", Bytes(1000)).code, ok);
    EXPECT_EQ(phone().android.storages().at(0).free, 0U);
    settings.readOnly = true;
    phone().android.setStorage(0, settings);
    EXPECT_EQ(announce(storage, root, RawHost::objectInfo(u"ro", 1)), 0x200E);
    EXPECT_EQ(host().run(0x100B, {file_, 0}).code, 0x200E);
}

TEST_F(MTPResponderRules, switchedOffOperationsAreUnknown) {
    behave([](VirtualBehaviour& behaviour) { behaviour.unsupportedOperations = {0x1015, 0x9804}; });
    openAndList();
    EXPECT_EQ(host().run(0x1015, {0x5001}).code, 0x2005);
    EXPECT_EQ(host().runOut(0x9804, {file_, 0xDC07}, Bytes(1)).code, 0x2005);
    EXPECT_EQ(host().run(0x1004).code, ok) << "in step after the data phase";
}

TEST_F(MTPResponderRules, lockedPhoneShowsNothing) {
    openAndList();
    phone().android.setLocked(true);
    const RawHost::Answer none = host().run(0x1004);
    EXPECT_EQ(none.code, ok);
    EXPECT_EQ(none.data, RawHost::words({0}));
    EXPECT_EQ(host().run(0x1005, {storage}).code, 0x2008);
    EXPECT_EQ(host().run(0x1008, {file_}).code, 0x2009);
    behave([](VirtualBehaviour& behaviour) { behaviour.omitsEmptyStorageList = true; });
    EXPECT_FALSE(host().run(0x1004).hasData);
    phone().android.setLocked(false);
    EXPECT_EQ(host().run(0x1004).data, RawHost::words({1, storage}));
    EXPECT_EQ(host().run(0x1008, {file_}).code, ok);
}

TEST_F(MTPResponderRules, requestsAreLoggedWithTheirParameters) {
    host().openSession();
    phone().android.clearRequestLog();
    EXPECT_EQ(host().run(0x1007, {storage, 0, root}).code, ok);
    EXPECT_EQ(host().run(0x1004).code, ok);
    const auto log = phone().android.requestLog();
    ASSERT_EQ(log.size(), 2U);
    EXPECT_EQ(log[0].operation, 0x1007);
    EXPECT_EQ(log[0].parameters, (std::vector<std::uint32_t>{storage, 0, root}));
    EXPECT_LE(log[0].time, log[1].time);
    EXPECT_EQ(phone().android.requestCount(MTPOperationCode::getStorageIDs), 1U);
    EXPECT_EQ(phone().android.requestCount(), 2U);
}

} // namespace
} // namespace tessary
