#include "phones/PhoneFixture.h"

#include <QDir>
#include <QFile>

#include <filesystem>

namespace tessary {
namespace {

class MTPResponderObjects : public PhoneFixture {
protected:
    static constexpr std::uint16_t ok = 0x2001;

    std::uint32_t only(std::uint32_t parent = root) {
        const auto found = host().handles(storage, parent);
        EXPECT_EQ(found.size(), 1U);
        return found.empty() ? 0 : found[0];
    }
    /// The raw name in an ObjectInfo dataset: the length byte and what it counts.
    static Bytes rawName(const Bytes& info) {
        const auto units = std::to_integer<std::size_t>(info.at(52));
        return {info.begin() + 52, info.begin() + static_cast<std::ptrdiff_t>(53 + 2 * units)};
    }
};

TEST_F(MTPResponderObjects, handlesStayUntilThePhoneIsUnplugged) {
    phone().write(QStringLiteral("a"), "1");
    phone().write(QStringLiteral("b"), "2");
    host().openSession();
    const auto before = host().handles(storage);
    phone().write(QStringLiteral("aa"), "between the others");
    QFile::remove(phone().disk.path(QStringLiteral("0/b")));
    const auto after = host().handles(storage);
    ASSERT_EQ(after.size(), 2U);
    EXPECT_EQ(after[0], before[0]);
    EXPECT_NE(after[1], before[1]);
    EXPECT_EQ(host().run(0x1008, {before[1]}).code, 0x2009);
    phone().android.unplug();
    phone().android.plugInto(bus_);
    connect();
    host().openSession();
    for (const std::uint32_t handle : host().handles(storage))
        EXPECT_EQ(std::ranges::count(after, handle), 0);
    EXPECT_EQ(host().run(0x1008, {after[0]}).code, 0x2009);
}

TEST_F(MTPResponderObjects, zeroAndAllOnesListWhatTheRuleSays) {
    phone().write(QStringLiteral("folder/inner/deep"), "");
    phone().write(QStringLiteral("top"), "");
    host().openSession();
    using Rule = VirtualBehaviour::RootListing;
    const auto count = [&](Rule rule, std::uint32_t parent) {
        behave([rule](VirtualBehaviour& behaviour) { behaviour.rootListing = rule; });
        return host().handles(storage, parent).size();
    };
    EXPECT_EQ(count(Rule::allOnes, root), 2U);
    EXPECT_EQ(count(Rule::allOnes, 0), 4U);
    EXPECT_EQ(count(Rule::zero, root), 0U);
    EXPECT_EQ(count(Rule::zero, 0), 2U);
    EXPECT_EQ(count(Rule::either, 0), 2U);
    EXPECT_EQ(count(Rule::either, root), 2U);
    EXPECT_EQ(host().handles(root, 0).size(), 2U) << "of every storage";
}

TEST_F(MTPResponderObjects, manyFilesAreListedInLinearTime) {
    constexpr int files = 10'000;
    // Names of one file: quicker to make than so many files.
    const std::string first = phone().write(QStringLiteral("many/f"), "x").toStdString();
    for (int i = 1; i < files; ++i)
        std::filesystem::create_hard_link(first, first + std::to_string(i));
    host().openSession();
    const std::uint32_t folder = only();
    const auto start = std::chrono::steady_clock::now();
    const auto listed = host().handles(storage, folder);
    ASSERT_EQ(listed.size(), std::size_t{files});
    for (const std::uint32_t handle : listed)
        ASSERT_EQ(host().run(0x1008, {handle}).code, ok);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    EXPECT_EQ(host().run(0x100B, {folder, 0}).code, ok);
    EXPECT_TRUE(phone().names().isEmpty());
}

TEST_F(MTPResponderObjects, largeSizesDoNotFitThirtyTwoBits) {
    constexpr qint64 size = (qint64{5} << 30) + 7;
    phone().disk.writeSparse(QStringLiteral("0/large"), size);
    host().openSession();
    const std::uint32_t handle = only();
    const auto sizeField = [&] {
        return readLittleEndian<std::uint32_t>(host().run(0x1008, {handle}).data, 8);
    };
    EXPECT_EQ(sizeField(), 0xFFFFFFFFU);
    EXPECT_EQ(readLittleEndian<std::uint64_t>(host().run(0x9803, {handle, 0xDC04}).data, 0),
              static_cast<std::uint64_t>(size));
    const RawHost::Answer end = host().run(0x95C1, {handle, 5, 1, 100});
    EXPECT_EQ(end.code, ok);
    behave([](VirtualBehaviour& behaviour) { behaviour.cutsSizesTo32Bits = true; });
    EXPECT_EQ(sizeField(), static_cast<std::uint32_t>(size & 0xFFFFFFFF));

    ASSERT_EQ(host().command(0x1009, {handle}), usb::success);
    Bytes start;
    ASSERT_EQ(host().read(start, 512), usb::success);
    EXPECT_EQ(readLittleEndian<std::uint32_t>(start, 0), 0xFFFFFFFFU);
    EXPECT_EQ(host().cancel(host().transactionID), usb::success);
}

TEST_F(MTPResponderObjects, uploadOfUnknownLengthEndsWithAShortPacket) {
    host().openSession();
    for (const std::size_t size : {std::size_t{100'000}, std::size_t{512 * 300 - 12}}) {
        const Bytes content = patternBytes(size);
        ASSERT_EQ(
            host().runOut(0x100C, {storage, root}, RawHost::objectInfo(u"f", 0xFFFFFFFF)).code, ok);
        ASSERT_EQ(host().command(0x100D), usb::success);
        const Bytes sent = RawHost::container(2, 0x100D, host().transactionID, content, 0xFFFFFFFF);
        ASSERT_EQ(host().write(sent), usb::success);
        if (sent.size() % 512 == 0) {
            EXPECT_TRUE(host().isQuiet()) << "the transfer has not ended";
            ASSERT_EQ(host().write({}), usb::success);
        }
        EXPECT_EQ(host().answer().code, ok);
        EXPECT_EQ(phone().content(QStringLiteral("f")), asArray(content));
        EXPECT_EQ(host().run(0x100B, {only(), 0}).code, ok);
    }
}

TEST_F(MTPResponderObjects, zeroPacketAfterAnUploadOfKnownLengthIsIgnored) {
    host().openSession();
    ASSERT_EQ(host().runOut(0x100C, {storage, root}, RawHost::objectInfo(u"f", 500)).code, ok);
    ASSERT_EQ(host().command(0x100D), usb::success);
    ASSERT_EQ(host().write(RawHost::container(2, 0x100D, host().transactionID, Bytes(500))),
              usb::success);
    ASSERT_EQ(host().write({}), usb::success);
    EXPECT_EQ(host().answer().code, ok);
    EXPECT_EQ(host().run(0x1004).code, ok);
}

TEST_F(MTPResponderObjects, noNameFromTheHostLeavesTheFolder) {
    phone().write(QStringLiteral("file"), "content");
    host().openSession();
    const std::uint32_t file = only();
    const std::u16string_view names[] = {
        u"..", u".", u"", u"../x", u"/tmp/x", u"a/b", std::u16string_view(u"a\0b", 3), u"\xD800",
    };
    for (const std::u16string_view name : names) {
        SCOPED_TRACE(
            QString::fromUtf16(name.data(), static_cast<qsizetype>(name.size())).toStdString());
        for (const std::uint16_t format : {std::uint16_t{0x3000}, std::uint16_t{0x3001}})
            EXPECT_EQ(
                host().runOut(0x100C, {storage, root}, RawHost::objectInfo(name, 1, format)).code,
                0x201D);
        Bytes text{static_cast<std::byte>(name.size() + 1)};
        for (const char16_t unit : name)
            appendLittleEndian(text, static_cast<std::uint16_t>(unit));
        text.resize(text.size() + 2);
        EXPECT_EQ(host().runOut(0x9804, {file, 0xDC07}, text).code, 0x201D);
    }
    EXPECT_EQ(phone().disk.names(), QStringList(QStringLiteral("0")));
    EXPECT_EQ(phone().names(), QStringList(QStringLiteral("file")));
}

TEST_F(MTPResponderObjects, linksDoNotShow) {
    phone().write(QStringLiteral("real"), "x");
    ASSERT_TRUE(QFile::link(QStringLiteral("/etc"), phone().disk.path(QStringLiteral("0/link"))));
    host().openSession();
    EXPECT_EQ(host().handles(storage).size(), 1U);
    EXPECT_EQ(host().runOut(0x100C, {storage, root}, RawHost::objectInfo(u"link", 1)).code, ok);
    EXPECT_EQ(host().runOut(0x100D, {}, Bytes(1)).code, 0x2002) << "never through the link";
}

TEST_F(MTPResponderObjects, fullFoldersGoOrStay) {
    phone().write(QStringLiteral("d/e/f"), QByteArray(100, 'x'));
    host().openSession();
    behave([](VirtualBehaviour& behaviour) {
        behaviour.refusesFullFolders = true;
        behaviour.deleteNeedsFormat = true;
    });
    const std::uint32_t folder = only();
    EXPECT_EQ(host().run(0x100B, {folder}).code, 0x201D);
    EXPECT_EQ(host().run(0x100B, {folder, 0}).code, 0x2012);
    EXPECT_EQ(phone().content(QStringLiteral("d/e/f")).size(), 100);
    behave([](VirtualBehaviour& behaviour) { behaviour = {}; });
    const std::uint64_t free = phone().android.storages().at(0).free;
    EXPECT_EQ(host().run(0x100B, {folder}).code, ok);
    EXPECT_TRUE(phone().names().isEmpty());
    EXPECT_EQ(phone().android.storages().at(0).free, free + 100);
}

TEST_F(MTPResponderObjects, renamesAndMovesKeepTheHandleAndNeverReplace) {
    phone().write(QStringLiteral("a"), "a");
    phone().write(QStringLiteral("b"), "b");
    phone().write(QStringLiteral("d/a"), "other");
    host().openSession();
    const auto listed = host().handles(storage);
    const Bytes toB{std::byte{2}, std::byte{'b'}, std::byte{0}, std::byte{0}, std::byte{0}};
    EXPECT_EQ(host().runOut(0x9804, {listed[0], 0xDC07}, toB).code, 0x2002);
    EXPECT_EQ(host().run(0x1019, {listed[0], storage, listed[2]}).code, 0x2002);
    EXPECT_EQ(host().run(0x1019, {listed[1], storage, listed[2]}).code, ok);
    EXPECT_EQ(phone().content(QStringLiteral("d/b")), "b");
    EXPECT_EQ(host().run(0x1009, {listed[1]}).data, Bytes{std::byte{'b'}});
    EXPECT_EQ(host().runOut(0x9804, {listed[0], 0xDC07}, toB).code, ok);
    EXPECT_EQ(host().run(0x1009, {listed[0]}).data, Bytes{std::byte{'a'}});
}

TEST_F(MTPResponderObjects, optionsOfUploads) {
    host().openSession();
    behave([](VirtualBehaviour& behaviour) {
        behaviour.createsObjectEarly = true;
        behaviour.forgetsSentHandle = true;
        behaviour.replacesSameName = true;
    });
    const auto info = host().runOut(0x100C, {storage, root}, RawHost::objectInfo(u"f", 3));
    EXPECT_EQ(info.code, ok);
    EXPECT_EQ(phone().content(QStringLiteral("f")), QByteArray(""));
    EXPECT_EQ(host().runOut(0x100D, {}, patternBytes(3)).code, ok);
    EXPECT_EQ(host().run(0x1008, {info.parameters.at(2)}).code, 0x2009);
    EXPECT_EQ(upload(u"f", patternBytes(2)).code, ok);
    EXPECT_EQ(phone().content(QStringLiteral("f")), asArray(patternBytes(2)));
    // A card that refuses large files
    VirtualStorage card = phone().android.storages().at(0);
    card.largestFile = 1000;
    phone().android.setStorage(0, card);
    EXPECT_EQ(upload(u"large", Bytes(1001)).code, 0xA809);
    EXPECT_EQ(upload(u"fits", Bytes(1000)).code, ok);
}

TEST_F(MTPResponderObjects, hostileNamesAndHandles) {
    phone().write(QStringLiteral("folder/inner"), "x");
    host().openSession();
    const std::uint32_t folder = only();
    QString longest(255, QLatin1Char('n'));
    const QString names[] = {QString(), QStringLiteral(".."), QStringLiteral("a/b"),
                             QString(QChar(0xD800)), longest};
    for (const QString& name : names) {
        phone().fault(
            [&](VirtualFaults& faults) { faults.nameOverrides[QStringLiteral("folder")] = name; });
        Bytes expected;
        const bool terminated = name.size() < 255 && !name.isEmpty();
        expected.push_back(static_cast<std::byte>(name.size() + (terminated ? 1 : 0)));
        for (const QChar unit : name)
            appendLittleEndian<std::uint16_t>(expected, unit.unicode());
        if (terminated)
            expected.resize(expected.size() + 2);
        EXPECT_EQ(rawName(host().run(0x1008, {folder}).data), expected);
    }
    phone().fault([](VirtualFaults& faults) {
        faults.repeatsHandles = true;
        faults.foldersHoldThemselves = true;
    });
    EXPECT_EQ(host().handles(storage), (std::vector{folder, folder}));
    const auto inside = host().handles(storage, folder);
    EXPECT_EQ(inside.size(), 4U);
    EXPECT_EQ(std::ranges::count(inside, folder), 2);
}

} // namespace
} // namespace tessary
