#include "SoakPhones.h"

#include "mtp/protocol/MTPCodes.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <vector>

namespace tessary {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto operations = {
    MTPOperationCode::openSession,   MTPOperationCode::getStorageIDs,
    MTPOperationCode::getObjectInfo, MTPOperationCode::getObjectHandles,
    MTPOperationCode::getObject,     MTPOperationCode::sendObjectInfo,
    MTPOperationCode::sendObject,    MTPOperationCode::deleteObject,
    MTPOperationCode::moveObject,    MTPOperationCode::setObjectPropValue,
};

constexpr std::array answers{MTPResponseCode::generalError, MTPResponseCode::accessDenied,
                             MTPResponseCode::deviceBusy, MTPResponseCode::storeFull};

const QStringList& requests() {
    static const QStringList names{
        u"afc.readDir"_s,    u"afc.getFileInfo"_s,       u"afc.fileOpen"_s,
        u"afc.fileRead"_s,   u"afc.fileWrite"_s,         u"afc.fileClose"_s,
        u"afc.renamePath"_s, u"afc.setFileModTime"_s,    u"afc.removePath"_s,
        u"afc.makeDir"_s,    u"lockdown.StartService"_s, u"houseArrest.VendDocuments"_s};
    return names;
}

/// What a hostile phone makes of its answers. What it says of its files stays true: a rename that
/// it tells of but does not do is nothing that anybody could find out.
struct Lie {
    const char* name;
    void (*change)(Bytes& container);
};

const std::vector<Lie> lies{
    {"4 GiB announced", [](Bytes& bytes) { std::fill_n(bytes.begin(), 4, std::byte{0xFF}); }},
    {"nothing announced", [](Bytes& bytes) { std::fill_n(bytes.begin(), 4, std::byte{0}); }},
    {"of no kind", [](Bytes& bytes) { bytes.at(4) = std::byte{9}; }},
    {"of another request", [](Bytes& bytes) { bytes.at(8) ^= std::byte{0x55}; }},
    {"cut", [](Bytes& bytes) { bytes.resize(bytes.size() / 2); }},
    {"2 MB more", [](Bytes& bytes) { bytes.resize(bytes.size() + 2'000'000); }},
};

const std::vector<VirtualRawAnswer> rawAnswers{
    {QByteArray(4096, '\0'), true},
    {QByteArray(4096, '\xFF'), true},
    {QByteArray("\0\1\0\0<plist><array>", 18) + QByteArray(66'000, '<')},
    {"no answer of any kind"},
};

std::uint64_t someBytes(Dice& dice) {
    return static_cast<std::uint64_t>(dice.between(12, dice.happens(50) ? 2000 : 400'000));
}

/// Fast enough for much to happen, slow enough for something to come in between.
double someSpeed(Dice& dice) {
    return dice.happens(50) ? dice.between(1, 5) : dice.between(5, 40);
}

VirtualAndroidConfig configOf(int number, const QString& folder) {
    VirtualAndroidConfig config;
    config.serialNumber = u"SOAK%1"_s.arg(number);
    config.productName = u"Pixel %1"_s.arg(number);
    config.location = u"1-%1"_s.arg(number);
    config.storages.resize(1);
    config.storages[0].folder = folder;
    return config;
}

VirtualIPhoneConfig iPhoneConfigOf(int number, const QString& container, const QString& app) {
    VirtualIPhoneConfig config;
    config.udid = u"00008101-000A1B2C3D4E00%1"_s.arg(number, 2, 10, QLatin1Char('0'));
    config.name = u"iPhone %1"_s.arg(number);
    VirtualIPhoneApp notes;
    notes.bundleID = app;
    notes.displayName = notes.name = u"Notes"_s;
    notes.folder = container;
    config.apps.push_back(notes);
    return config;
}

} // namespace

QString SoakPhone::onDisk(const QString& path) const {
    static const QString root = u"/sdcard"_s;
    return folder_ + (path.startsWith(root) ? path.mid(root.size()) : path);
}

SoakAndroid::SoakAndroid(VirtualUSBBus& bus, int number, const QString& folder)
    : SoakPhone(u"Android %1"_s.arg(number), folder),
      bus_(bus),
      android_(configOf(number, folder)) {}

QString SoakAndroid::breakDown(Dice& dice) {
    const auto operation = dice.oneOf(std::vector(operations));
    const auto code = static_cast<std::uint16_t>(operation);
    const VirtualByteFault bytes{dice.happens(50) ? USBDirection::in : USBDirection::out,
                                 someBytes(dice), static_cast<unsigned>(dice.between(1, 20))};
    const auto answer = static_cast<std::uint16_t>(dice.oneOf(answers));
    const int kind = dice.between(1, 100);
    if (kind > 92) {
        android_.setLocked(true);
        return u"locked"_s;
    }
    const Lie& lie = dice.oneOf(lies);
    return android_.faults().update([&](VirtualFaults& faults) -> QString {
        if (kind > 80) {
            faults.rewrite = [lie, code](const VirtualAnswer& said) -> std::optional<Bytes> {
                if (said.operation != code)
                    return std::nullopt;
                Bytes container = said.container;
                lie.change(container);
                return container;
            };
            return u"answers of %1 are %2"_s.arg(code, 0, 16).arg(QLatin1StringView(lie.name));
        }
        if (kind > 55) {
            faults.unplug = bytes;
            return u"unplug after %1 bytes of phase %2"_s.arg(bytes.bytes).arg(bytes.phase);
        }
        if (kind > 45) {
            faults.stall = bytes;
            return u"stall after %1 bytes of phase %2"_s.arg(bytes.bytes).arg(bytes.phase);
        }
        if (kind > 20) {
            faults.errors[code] = {answer, kind > 35};
            return u"%1 answered with %2"_s.arg(code, 0, 16).arg(answer, 0, 16);
        }
        if (kind > 12) {
            faults.storeFullAfter = bytes.bytes;
            return u"full after %1 bytes"_s.arg(bytes.bytes);
        }
        if (kind > 2) {
            faults.delayEach = std::chrono::milliseconds(dice.between(1, 40));
            return u"slow"_s;
        }
        faults.hang.insert(code);
        return u"%1 not answered"_s.arg(code, 0, 16);
    });
}

void SoakAndroid::heal(Dice& dice) {
    android_.setLocked(false);
    VirtualFaults faults;
    faults.megabytesPerSecond = someSpeed(dice);
    faults.headerInOwnTransfer = dice.happens(20);
    faults.dataAndResponseJoined = dice.happens(20);
    faults.junkTransactionID = dice.happens(10);
    android_.faults().set(std::move(faults));
    VirtualBehaviour behaviour;
    behaviour.rootListing = dice.happens(50)   ? VirtualBehaviour::RootListing::allOnes
                            : dice.happens(50) ? VirtualBehaviour::RootListing::zero
                                               : VirtualBehaviour::RootListing::either;
    behaviour.refusesFullFolders = dice.happens(30);
    behaviour.forgetsSentHandle = dice.happens(30);
    behaviour.createsObjectEarly = dice.happens(30);
    behaviour.answersCancelled = dice.happens(30);
    android_.behaviour().set(std::move(behaviour));
}

SoakIPhone::SoakIPhone(LoggingMux& mux, int number, const QString& folder)
    : SoakPhone(u"iPhone %1"_s.arg(number), folder + u"/Documents"_s),
      mux_(mux),
      iPhone_(iPhoneConfigOf(number, folder, app())) {}

QString SoakIPhone::breakDown(Dice& dice) {
    const auto cut = [&] {
        return dice.happens(60)   ? VirtualCut::unplug
               : dice.happens(85) ? VirtualCut::close
                                  : VirtualCut::stall;
    };
    const QString request = dice.oneOf(requests());
    const int kind = dice.between(1, 100);
    if (kind > 95) {
        iPhone_.setLocked(true);
        return u"locked"_s;
    }
    if (kind > 90) {
        iPhone_.setTrust(VirtualTrust::asking);
        return u"asks whether to trust"_s;
    }
    return iPhone_.faults().update([&](VirtualIPhoneFaults& faults) -> QString {
        if (kind > 80) {
            faults.rawAnswers[request] = dice.oneOf(rawAnswers);
            return u"%1 answered with nonsense"_s.arg(request);
        }
        if (kind > 55) {
            using Direction = VirtualDirection;
            const auto direction = dice.happens(50) ? Direction::toHost : Direction::toPhone;
            faults.byteFault = VirtualIPhoneByteFault{direction, someBytes(dice), cut()};
            return u"cut %1 after %2 bytes"_s.arg(static_cast<int>(faults.byteFault->cut))
                .arg(faults.byteFault->bytes);
        }
        if (kind > 35) {
            faults.requestFault = VirtualIPhoneRequestFault{
                request, static_cast<unsigned>(dice.between(1, 6)), dice.happens(50), cut()};
            return u"cut %1 at %2"_s.arg(static_cast<int>(faults.requestFault->cut)).arg(request);
        }
        if (kind > 20) {
            faults.statuses[request] = {static_cast<std::uint64_t>(dice.between(1, 20)), kind > 30};
            return u"%1 refused"_s.arg(request);
        }
        if (kind > 12) {
            faults.storeFullAfter = someBytes(dice);
            return u"full after %1 bytes"_s.arg(*faults.storeFullAfter);
        }
        if (kind > 5) {
            faults.delayEach = std::chrono::milliseconds(dice.between(1, 40));
            return u"slow"_s;
        }
        faults.handshakesToFail = static_cast<unsigned>(dice.between(1, 3));
        faults.handshakeError = dice.happens(50) ? u"PasswordProtected"_s : QString();
        return u"handshake refused"_s;
    });
}

void SoakIPhone::heal(Dice& dice) {
    iPhone_.setLocked(false);
    iPhone_.setTrust(VirtualTrust::trusted);
    VirtualIPhoneFaults faults;
    faults.megabytesPerSecond = someSpeed(dice);
    faults.longestRead = dice.happens(20) ? static_cast<std::uint64_t>(dice.between(100, 9000)) : 0;
    iPhone_.faults().set(std::move(faults));
}

SoakADBPhone::SoakADBPhone(ADBServer& server, const QString& folder)
    : SoakPhone(u"Android by adb"_s, folder), server_(server), adbd_([&] {
          ADBDConfig config;
          config.folder = folder;
          return config;
      }()) {
    adbd_.start();
    server.connect(adbd_.address());
    if (!server.awaitPhone(adbd_.address()))
        throw std::runtime_error("adb does not reach its phone");
}

QString SoakADBPhone::breakDown(Dice& dice) {
    return adbd_.faults().update([&](ADBDFaults& faults) -> QString {
        if (dice.happens(60)) {
            faults.dropAfter = someBytes(dice);
            return u"cut after %1 bytes"_s.arg(*faults.dropAfter);
        }
        if (dice.happens(60)) {
            faults.extraNames = {"..", ".", "../outside", "/etc/passwd", "a/b"};
            faults.sizeLie = dice.between(-3, 3) * 1'000'000;
            return u"names that lead elsewhere, sizes %1 more"_s.arg(faults.sizeLie);
        }
        faults.readOnly = true;
        return u"read-only"_s;
    });
}

void SoakADBPhone::heal(Dice& dice) {
    ADBDFaults faults;
    faults.megabytesPerSecond = someSpeed(dice);
    adbd_.faults().set(std::move(faults));
}

} // namespace tessary
