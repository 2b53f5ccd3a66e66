#pragma once

#include "adb/files/ADBFileSystem.h"
#include "adb/server/ADBServerConnection.h"
#include "ios/files/AFCFileSystem.h"
#include "mtp/files/MTPFileSystem.h"
#include "support/ADBFixture.h"
#include "support/Application.h"
#include "support/IPhoneFiles.h"
#include "support/PluggedPhone.h"
#include "transfer/CopySides.h"

namespace tessary {

/// A virtual phone.
class PhoneSide : public FolderSide, public PhoneEnd {
public:
    using FolderSide::FolderSide;

    /// Of 10^6 bytes a second, for contents of files.
    virtual void slowDownTo(double megabytesPerSecond) = 0;
};

/// The faults that each kind of phone knows by the same names.
template <typename Faults>
class FaultySide : public PhoneSide {
public:
    using PhoneSide::PhoneSide;

    void fillUpAt(qint64 bytes) override {
        fault(
            [bytes](Faults& faults) { faults.storeFullAfter = static_cast<std::uint64_t>(bytes); });
    }
    void garbleNext() override {
        fault([](Faults& faults) { faults.garblesNext = true; });
    }
    void becomeSound() override {
        fault([](Faults& faults) { faults = {}; });
    }
    void slowDownTo(double megabytesPerSecond) override {
        fault([=](Faults& faults) { faults.megabytesPerSecond = megabytesPerSecond; });
    }

protected:
    virtual void fault(const std::function<void(Faults&)>& change) = 0;
};

/// A virtual phone over MTP.
class MTPSide final : public FaultySide<VirtualFaults> {
public:
    explicit MTPSide(const char* serial, bool isOnCard = false)
        : MTPSide(std::make_unique<Phone>(serial), isOnCard) {}

    [[nodiscard]] std::shared_ptr<PhoneFileSystem> files() override {
        return files_;
    }
    [[nodiscard]] QString root() const override {
        return isOnCard_ ? QStringLiteral("/storage/131073/side") : QStringLiteral("/side");
    }

    /// Its names are UTF-16, in which half a pair is no text.
    void putNameless(const QString& folder) override {
        put(folder + QStringLiteral("/stand-in"), {}, QDateTime::currentDateTime());
        fault([](VirtualFaults& faults) {
            faults.nameOverrides[QStringLiteral("stand-in")] = QString(QChar(0xD800));
        });
    }
    void unplug() override {
        phone_->plugged.android.unplug();
    }
    void plugIn() override {
        ASSERT_NE(phone_->plugged.android.plugInto(phone_->bus), 0U);
    }
    void becomeReadOnly() override {
        phone_->plugged.refuse(MTPOperationCode::sendObjectInfo, MTPResponseCode::storeReadOnly);
    }

private:
    void fault(const std::function<void(VirtualFaults&)>& change) override {
        phone_->plugged.fault(change);
    }

    struct Phone {
        explicit Phone(const char* serial) : plugged(bus, withCard(phoneConfig(serial))) {}

        static VirtualAndroidConfig withCard(VirtualAndroidConfig config) {
            config.storages.resize(2);
            config.storages[1].removable = true;
            return config;
        }

        VirtualUSBBus bus;
        PluggedPhone plugged;
    };

    MTPSide(std::unique_ptr<Phone> phone, bool isOnCard)
        : FaultySide(phone->plugged.disk, QStringLiteral("%1/side").arg(isOnCard ? 1 : 0)),
          isOnCard_(isOnCard),
          phone_(std::move(phone)) {}

    const bool isOnCard_;
    const std::unique_ptr<Phone> phone_;
    const std::shared_ptr<MTPFileSystem> files_ = std::make_shared<MTPFileSystem>(
        phone_->bus, identityOf(phone_->plugged.info), std::make_shared<PhoneQueue>());
};

inline std::unique_ptr<PhoneSide> overMTP() {
    return std::make_unique<MTPSide>("MTPSIDE1");
}
inline std::unique_ptr<PhoneSide> overMTPToCard() {
    return std::make_unique<MTPSide>("MTPSIDE3", true);
}
inline std::unique_ptr<CopyEnd> overMTPToAnother() {
    return std::make_unique<MTPSide>("MTPSIDE2");
}

/// A folder of its own on a phone that is the same for all tests: to start one takes seconds.
inline QString nextFolder() {
    static int folders = 0;
    return QStringLiteral("side%1").arg(++folders);
}

/// A virtual phone by the real adb server.
class ADBSide final : public FaultySide<ADBDFaults> {
public:
    explicit ADBSide(bool isOnCard = false) : ADBSide(nextFolder(), isOnCard) {}

    [[nodiscard]] std::shared_ptr<PhoneFileSystem> files() override {
        return files_;
    }
    [[nodiscard]] QString root() const override {
        return (isOnCard_ ? QStringLiteral("/storage/1234-ABCD/") : QStringLiteral("/sdcard/")) +
               folder_;
    }
    void unplug() override {
        phone_.adbd_->cut();
    }
    void plugIn() override {
        phone_.comeBack();
    }
    void becomeReadOnly() override {
        fault([](ADBDFaults& faults) { faults.readOnly = true; });
    }

private:
    void fault(const std::function<void(ADBDFaults&)>& change) override {
        phone_.adbd_->faults().update(change);
    }

    struct Phone : ADBPhone {
        Phone()
            : ADBPhone({.folder = {},
                        .cards = {{.folder = card.makeFolder(QStringLiteral("card"))}},
                        .ignoresCase = true}) {
            connectPhone();
            files = std::make_shared<ADBFileSystem>(identity(), std::make_shared<PhoneQueue>(),
                                                    serverConnection());
        }
        using ADBPhone::adbd_;
        void comeBack() {
            ASSERT_TRUE(reaches(QStringLiteral("device")));
        }
        using ADBPhone::disk_;
        inline static const TemporaryFolder card;
        std::shared_ptr<ADBFileSystem> files;
    };
    static Phone& phone() {
        static Phone phone;
        return phone;
    }

    ADBSide(const QString& folder, bool isOnCard)
        : FaultySide(isOnCard ? Phone::card : phone().disk_,
                     (isOnCard ? QStringLiteral("card/") : QStringLiteral("phone/")) + folder),
          folder_(folder),
          isOnCard_(isOnCard) {}

    Phone& phone_ = phone();
    const QString folder_;
    const bool isOnCard_;
    const std::shared_ptr<ADBFileSystem> files_ = phone_.files;
};

/// A virtual iPhone's app by the real library.
class AFCSide final : public FaultySide<VirtualIPhoneFaults> {
public:
    AFCSide() : AFCSide(nextFolder()) {}

    /// Where another one can be plugged in.
    [[nodiscard]] static IPhoneFiles& plugged() {
        return phone().plugged;
    }

    [[nodiscard]] std::shared_ptr<PhoneFileSystem> files() override {
        return files_;
    }
    [[nodiscard]] QString root() const override {
        return QLatin1Char('/') + folder_;
    }
    void unplug() override {
        plugged().phone.unplug();
    }
    void plugIn() override {
        plugged().phone.plugInto(plugged().mux);
    }
    void becomeReadOnly() override {
        constexpr std::uint64_t permissionDenied = 10;
        plugged().refuse("afc.fileOpen", permissionDenied, true);
    }

private:
    void fault(const std::function<void(VirtualIPhoneFaults&)>& change) override {
        plugged().faults(change);
    }

    struct Phone {
        Application application;
        IPhoneFiles plugged;
        std::shared_ptr<AFCFileSystem> files = std::make_shared<AFCFileSystem>(
            plugged.identity(), IPhoneFiles::notes(), std::make_shared<PhoneQueue>());
    };

    static Phone& phone() {
        static Phone phone;
        return phone;
    }

    explicit AFCSide(const QString& folder)
        : FaultySide(plugged().disk, plugged().inDocuments(folder)), folder_(folder) {}

    const QString folder_;
    const std::shared_ptr<AFCFileSystem> files_ = phone().files;
};

inline std::unique_ptr<PhoneSide> overADB() {
    return std::make_unique<ADBSide>();
}
inline std::unique_ptr<PhoneSide> overADBToCard() {
    return std::make_unique<ADBSide>(true);
}
inline std::unique_ptr<PhoneSide> overAFC() {
    return std::make_unique<AFCSide>();
}

} // namespace tessary
