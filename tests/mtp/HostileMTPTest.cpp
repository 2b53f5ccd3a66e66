// A phone that sends what it likes. Whatever it is, it is one error of this phone, within bounds of
// time and memory, and the phone is used again when it has come to its senses.

#include "mtp/MTPFilesFixture.h"
#include "support/UnderAttack.h"

namespace tessary {
namespace {

using namespace Qt::StringLiterals;
using enum MTPOperationCode;

void putNumber(Bytes& bytes, std::size_t at, std::uint32_t number) {
    for (std::size_t n = 0; n < 4 && at + n < bytes.size(); ++n)
        bytes[at + n] = static_cast<std::byte>(number >> (8 * n));
}

const std::vector<PhoneUse> uses = usesOf(u"/D"_s);

/// What becomes of a container on its way.
struct Attack {
    const char* name;
    std::function<void(const VirtualAnswer&, Bytes&)> change;
};

bool isData(const VirtualAnswer& answer) {
    return answer.type == MTPContainerType::data;
}

const std::vector<Attack> attacks{
    {"announces 4 GiB", [](auto&, Bytes& bytes) { putNumber(bytes, 0, 0xFFFFFFFF); }},
    {"announces 2 GiB", [](auto&, Bytes& bytes) { putNumber(bytes, 0, 0x7FFFFFFF); }},
    {"announces nothing", [](auto&, Bytes& bytes) { putNumber(bytes, 0, 0); }},
    {"announces less than a header", [](auto&, Bytes& bytes) { putNumber(bytes, 0, 11); }},
    {"of no kind", [](auto&, Bytes& bytes) { bytes.at(4) = std::byte{9}; }},
    {"of another operation", [](auto&, Bytes& bytes) { bytes.at(6) ^= std::byte{0x55}; }},
    {"of another transaction", [](auto&, Bytes& bytes) { putNumber(bytes, 8, 0xDEADBEEF); }},
    {"lists without end",
     [](auto& answer, Bytes& bytes) {
         if (isData(answer) && bytes.size() >= 16)
             putNumber(bytes, 12, 0xFFFFFFFF);
     }},
    {"twenty megabytes more",
     [](auto& answer, Bytes& bytes) {
         if (!isData(answer))
             return;
         bytes.resize(bytes.size() + (20 << 20), std::byte{0x41});
         putNumber(bytes, 0, static_cast<std::uint32_t>(bytes.size()));
     }},
    {"a million equal entries",
     [](auto& answer, Bytes& bytes) {
         if (!isData(answer) || answer.operation != static_cast<std::uint16_t>(getObjectHandles) ||
             bytes.size() < 20)
             return;
         constexpr std::uint32_t count = 1'000'000;
         const Bytes one(bytes.begin() + 16, bytes.begin() + 20);
         bytes.resize(16);
         for (std::uint32_t n = 0; n < count; ++n)
             bytes.insert(bytes.end(), one.begin(), one.end());
         putNumber(bytes, 12, count);
         putNumber(bytes, 0, static_cast<std::uint32_t>(bytes.size()));
     }},
};

class HostileMTPTest : public MTPFilesFixture {
protected:
    HostileMTPTest() {
        phone().write(u"D/a.jpg"_s, QByteArray(3000, 'a'));
        phone().write(u"D/second.txt"_s, "2");
        other_.write(u"fine.txt"_s, "fine");
    }
    void setAttack(const std::function<void(const VirtualAnswer&, Bytes&)>& change) {
        phone().fault([&](VirtualFaults& faults) {
            faults.rewrite = [change](const VirtualAnswer& answer) -> std::optional<Bytes> {
                Bytes bytes = answer.container;
                change(answer, bytes);
                return bytes;
            };
        });
    }
    void expectUsableAgain() {
        phone().fault([](VirtualFaults& faults) { faults.rewrite = nullptr; });
        expectUsable(files_, u"/D"_s);
    }

    PluggedPhone other_{bus_, phoneConfig("OTHER", "1-9")};
    MTPFileSystem otherFiles_{bus_, identityOf(other_.info), std::make_shared<PhoneQueue>()};
};

TEST_F(HostileMTPTest, everyLieIsBoundedAndForgiven) {
    for (const Attack& attack : attacks)
        for (const PhoneUse& use : uses) {
            SCOPED_TRACE(std::string(use.name) + ": " + attack.name);
            setAttack(attack.change);
            expectBounded(files_, use);
            EXPECT_EQ(listAll(otherFiles_, u"/"_s, {}).items.size(), 1U);
            expectUsableAgain();
        }
}

TEST_F(HostileMTPTest, anAnswerMayEndAtEachByte) {
    for (std::size_t length = 0; length < 90; length += length < 30 ? 1 : 7) {
        SCOPED_TRACE(length);
        setAttack([length](const VirtualAnswer&, Bytes& bytes) {
            bytes.resize(std::min(bytes.size(), length));
        });
        expectBounded(files_, uses[length % uses.size()]);
    }
    expectUsableAgain();
}

} // namespace
} // namespace tessary
