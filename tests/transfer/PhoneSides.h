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

/// A virtual phone, whose cable can come out.
class PhoneSide : public FolderSide {
public:
    using FolderSide::FolderSide;

    virtual void unplug() = 0;
    virtual void plugIn() = 0;
    /// No file becomes longer than that.
    virtual void fillUpAt(std::uint64_t bytes) = 0;
    virtual void becomeReadOnly() = 0;
    virtual void becomeSound() = 0;
};

/// A virtual phone over MTP.
class MTPSide final : public PhoneSide {
public:
    explicit MTPSide(const char* serial) : MTPSide(std::make_unique<Phone>(serial)) {}

    [[nodiscard]] std::shared_ptr<PhoneFileSystem> files() override {
        return files_;
    }
    [[nodiscard]] QString root() const override {
        return QStringLiteral("/side");
    }

    void unplug() override {
        phone_->plugged.android.unplug();
    }
    void plugIn() override {
        ASSERT_NE(phone_->plugged.android.plugInto(phone_->bus), 0U);
    }
    void fillUpAt(std::uint64_t bytes) override {
        phone_->plugged.fault([&](VirtualFaults& faults) { faults.storeFullAfter = bytes; });
    }
    void becomeReadOnly() override {
        phone_->plugged.refuse(MTPOperationCode::sendObjectInfo, MTPResponseCode::storeReadOnly);
    }
    void becomeSound() override {
        phone_->plugged.fault([](VirtualFaults& faults) { faults = {}; });
    }

private:
    struct Phone {
        explicit Phone(const char* serial) : plugged(bus, phoneConfig(serial)) {}

        VirtualUSBBus bus;
        PluggedPhone plugged;
    };

    explicit MTPSide(std::unique_ptr<Phone> phone)
        : PhoneSide(phone->plugged.disk, QStringLiteral("0/side")), phone_(std::move(phone)) {}

    const std::unique_ptr<Phone> phone_;
    const std::shared_ptr<MTPFileSystem> files_ = std::make_shared<MTPFileSystem>(
        phone_->bus, identityOf(phone_->plugged.info), std::make_shared<PhoneQueue>());
};

inline std::unique_ptr<PhoneSide> overMTP() {
    return std::make_unique<MTPSide>("MTPSIDE1");
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
class ADBSide final : public PhoneSide {
public:
    ADBSide() : ADBSide(nextFolder()) {}

    [[nodiscard]] std::shared_ptr<PhoneFileSystem> files() override {
        return files_;
    }
    [[nodiscard]] QString root() const override {
        return QStringLiteral("/sdcard/") + folder_;
    }
    void unplug() override {
        phone().cut();
    }
    void plugIn() override {
        phone().comeBack();
    }
    void fillUpAt(std::uint64_t bytes) override {
        phone().fault([&](ADBDFaults& faults) { faults.storeFullAfter = bytes; });
    }
    void becomeReadOnly() override {
        phone().fault([](ADBDFaults& faults) { faults.readOnly = true; });
    }
    void becomeSound() override {
        phone().fault([](ADBDFaults& faults) { faults = {}; });
    }

private:
    struct Phone : ADBPhone {
        Phone() : ADBPhone({.folder = {}, .ignoresCase = true}) {
            connectPhone();
            PhoneIdentity identity;
            identity.udid = identity.serialNumber = serial();
            ADBServerAddress address;
            address.port = server_.port();
            files = std::make_shared<ADBFileSystem>(
                identity, std::make_shared<PhoneQueue>(),
                std::make_shared<ADBServerConnection>(std::make_shared<ADBServerClient>(address),
                                                      ADBPhoneSought{serial(), {}}));
        }
        void cut() {
            adbd_->cut();
        }
        void fault(const std::function<void(ADBDFaults&)>& change) {
            adbd_->faults().update(change);
        }
        void comeBack() {
            ASSERT_TRUE(reaches(QStringLiteral("device")));
        }
        using ADBPhone::disk_;
        std::shared_ptr<ADBFileSystem> files;
    };
    static Phone& phone() {
        static Phone phone;
        return phone;
    }

    explicit ADBSide(const QString& folder)
        : PhoneSide(phone().disk_, QStringLiteral("phone/") + folder), folder_(folder) {}

    const QString folder_;
    const std::shared_ptr<ADBFileSystem> files_ = phone().files;
};

/// A virtual iPhone's app by the real library.
class AFCSide final : public PhoneSide {
public:
    AFCSide() : AFCSide(nextFolder()) {}

    [[nodiscard]] std::shared_ptr<PhoneFileSystem> files() override {
        return files_;
    }
    [[nodiscard]] QString root() const override {
        return QLatin1Char('/') + folder_;
    }
    void unplug() override {
        phone().plugged.phone.unplug();
    }
    void plugIn() override {
        phone().plugged.phone.plugInto(phone().plugged.mux);
    }
    void fillUpAt(std::uint64_t bytes) override {
        phone().plugged.faults([&](VirtualIPhoneFaults& faults) { faults.storeFullAfter = bytes; });
    }
    void becomeReadOnly() override {
        constexpr std::uint64_t permissionDenied = 10;
        phone().plugged.faults([](VirtualIPhoneFaults& faults) {
            faults.statuses[QStringLiteral("afc.fileOpen")] = {permissionDenied, true};
        });
    }
    void becomeSound() override {
        phone().plugged.faults([](VirtualIPhoneFaults& faults) { faults = {}; });
    }

private:
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
        : PhoneSide(phone().plugged.disk, phone().plugged.inDocuments(folder)), folder_(folder) {}

    const QString folder_;
    const std::shared_ptr<AFCFileSystem> files_ = phone().files;
};

inline std::unique_ptr<PhoneSide> overADB() {
    return std::make_unique<ADBSide>();
}
inline std::unique_ptr<PhoneSide> overAFC() {
    return std::make_unique<AFCSide>();
}

} // namespace tessary
