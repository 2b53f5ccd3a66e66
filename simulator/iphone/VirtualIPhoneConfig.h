#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace tessary {

/// An app of a virtual iPhone. Its container is a folder on disk, whose "Documents" is what it
/// shares; both are created when missing.
struct VirtualIPhoneApp {
    QString bundleID;
    QString
        displayName; ///< "CFBundleDisplayName"; a null text leaves the key out, an empty one not
    QString name;    ///< "CFBundleName", in the same way
    QString folder;  ///< absolute
    bool sharesFiles = true; ///< "UIFileSharingEnabled"; house arrest refuses others
    bool isSystem = false;   ///< came with the phone, listed as "System"
    /// Built by a developer, so that house arrest also grants "VendContainer".
    bool isDebuggable = false;
};

/// Whether the phone trusts this computer.
enum class VirtualTrust {
    trusted, ///< pairs with whoever asks
    asking,  ///< shows the question: "PairingDialogResponsePending"
    denied,  ///< "UserDeniedPairing"
};

/// What a virtual iPhone is when it is made.
struct VirtualIPhoneConfig {
    QString udid = QStringLiteral("00008101-000A1B2C3D4E001E");
    QString name = QStringLiteral("iPhone");
    QString productType = QStringLiteral("iPhone13,2");
    QString productVersion = QStringLiteral("16.7.2");
    QString buildVersion = QStringLiteral("20H115");
    /// The address of its Wi-Fi side, e.g. "127.0.0.1": lockdown listens there on port 62078, so
    /// that each phone needs an address of its own. Empty: it is never on Wi-Fi.
    QString wifiAddress{};

    std::vector<VirtualIPhoneApp> apps{};
    /// The media folder on disk, absolute, created when missing. Empty: there is no such service.
    QString mediaFolder{};
    /// Names at its top below which the phone lets files be made and changed; elsewhere in it they
    /// may only be read and deleted.
    QStringList writableMedia = {QStringLiteral("Downloads"), QStringLiteral("Books")};
    std::uint64_t capacity = std::uint64_t{128} * 1'000'000'000; ///< bytes
    /// Bytes; falls and rises with what the host writes and deletes.
    std::uint64_t free = std::uint64_t{64} * 1'000'000'000;
    int battery = 80;              ///< percent
    double megabytesPerSecond = 0; ///< of 10^6 bytes of file content; 0 for no limit

    VirtualTrust trust = VirtualTrust::trusted;
    /// The multiplexer has a pair record from the start. Else the host pairs first.
    bool isPaired = true;
    /// Once the phone trusts this computer the multiplexer pairs with it on its own, and tells so,
    /// as the daemon of Linux systems does.
    bool multiplexerPairs = true;
    /// Not unlocked since it was switched on: no pairing, session or service, "PasswordProtected".
    bool isLocked = false;
    bool sessionTls = true;  ///< lockdown sessions go on under TLS
    bool serviceTls = false; ///< so do services
    /// The first answer of the installation proxy's Browse holds so many apps, and each one after.
    int appsPerAnswer = 2;

    /// House arrest's VendDocuments shows the documents as the root. Else they are "/Documents",
    /// and nothing outside is readable.
    bool documentsAreRoot = false;
    /// Removing a folder that is not empty answers this: 33, and 1 on some phones.
    std::uint64_t fullFolderStatus = 33;
};

} // namespace tessary
