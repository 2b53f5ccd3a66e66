#include "adb/files/ADBFileSystem.h"
#include "adb/server/ADBServerConnection.h"
#include "ios/files/AFCFileSystem.h"
#include "mtp/files/MTPFileSystem.h"
#include "support/ADBFixture.h"
#include "support/Application.h"
#include "support/IPhoneFiles.h"
#include "support/PluggedPhone.h"
#include "transfer/CopyRows.h"

namespace tessary {
namespace {

/// A virtual phone over MTP.
class MTPSide final : public FolderSide {
public:
    explicit MTPSide(const char* serial) : MTPSide(std::make_unique<Phone>(serial)) {}

    [[nodiscard]] std::shared_ptr<PhoneFileSystem> files() override {
        return files_;
    }
    [[nodiscard]] QString root() const override {
        return QStringLiteral("/side");
    }
    /// Requests that `work` makes.
    [[nodiscard]] std::size_t requestsOf(const std::function<void()>& work) {
        phone_->plugged.android.clearRequestLog();
        work();
        return phone_->plugged.android.requestCount();
    }

    void unplug() {
        phone_->plugged.android.unplug();
    }
    void plugIn() {
        ASSERT_NE(phone_->plugged.android.plugInto(phone_->bus), 0U);
    }

private:
    struct Phone {
        explicit Phone(const char* serial) : plugged(bus, phoneConfig(serial)) {}

        VirtualUSBBus bus;
        PluggedPhone plugged;
    };

    explicit MTPSide(std::unique_ptr<Phone> phone)
        : FolderSide(phone->plugged.disk, QStringLiteral("0/side")), phone_(std::move(phone)) {}

    const std::unique_ptr<Phone> phone_;
    const std::shared_ptr<MTPFileSystem> files_ = std::make_shared<MTPFileSystem>(
        phone_->bus, identityOf(phone_->plugged.info), std::make_shared<PhoneQueue>());
};

std::unique_ptr<CopyEnd> overMTP() {
    return std::make_unique<MTPSide>("MTPSIDE1");
}
std::unique_ptr<CopyEnd> overMTPToAnother() {
    return std::make_unique<MTPSide>("MTPSIDE2");
}

/// A folder of its own on a phone that is the same for all tests: to start one takes seconds.
QString nextFolder() {
    static int folders = 0;
    return QStringLiteral("side%1").arg(++folders);
}

/// A virtual phone by the real adb server.
class ADBSide final : public FolderSide {
public:
    ADBSide() : ADBSide(nextFolder()) {}

    [[nodiscard]] std::shared_ptr<PhoneFileSystem> files() override {
        return files_;
    }
    [[nodiscard]] QString root() const override {
        return QStringLiteral("/sdcard/") + folder_;
    }

private:
    struct Phone : ADBPhone {
        Phone() {
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
        using ADBPhone::disk_;
        std::shared_ptr<ADBFileSystem> files;
    };
    static Phone& phone() {
        static Phone phone;
        return phone;
    }

    explicit ADBSide(const QString& folder)
        : FolderSide(phone().disk_, QStringLiteral("phone/") + folder), folder_(folder) {}

    const QString folder_;
    const std::shared_ptr<ADBFileSystem> files_ = phone().files;
};

/// A virtual iPhone's app by the real library.
class AFCSide final : public FolderSide {
public:
    AFCSide() : AFCSide(nextFolder()) {}

    [[nodiscard]] std::shared_ptr<PhoneFileSystem> files() override {
        return files_;
    }
    [[nodiscard]] QString root() const override {
        return QLatin1Char('/') + folder_;
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
        : FolderSide(phone().plugged.disk, phone().plugged.inDocuments(folder)), folder_(folder) {}

    const QString folder_;
    const std::shared_ptr<AFCFileSystem> files_ = phone().files;
};

std::unique_ptr<CopyEnd> overADB() {
    return std::make_unique<ADBSide>();
}
std::unique_ptr<CopyEnd> overAFC() {
    return std::make_unique<AFCSide>();
}

INSTANTIATE_TEST_SUITE_P(
    Ways, TreeCopyOverWays,
    testing::Values(Way{"downloadOverMTP", overMTP, aDisk}, Way{"uploadOverMTP", aDisk, overMTP},
                    Way{"downloadOverADB", overADB, aDisk}, Way{"uploadOverADB", aDisk, overADB},
                    Way{"downloadOverAFC", overAFC, aDisk}, Way{"uploadOverAFC", aDisk, overAFC},
                    Way{"fromMTPToMTP", overMTP, overMTPToAnother},
                    Way{"fromMTPToAFC", overMTP, overAFC}, Way{"fromAFCToADB", overAFC, overADB},
                    Way{"withinOnePhone", overADB, overADB}),
    [](const auto& way) { return way.param.name; });

/// What many small files cost is what a person waits for.
TEST(RequestsOverMTP, aSmallFileTakesFew) {
    constexpr std::size_t files = 50;
    constexpr std::size_t around = 10; // for the folder, and to begin with
    for (const bool isUpload : {true, false}) {
        MTPSide phone("REQUESTS");
        DiskSide disk;
        CopyEnd& from = isUpload ? static_cast<CopyEnd&>(disk) : phone;
        CopyEnd& to = isUpload ? static_cast<CopyEnd&>(phone) : disk;
        for (std::size_t n = 0; n < files; ++n)
            from.put(s("d/%1.jpg").arg(n), "small", noon);
        TreeCopyRequest request = requestFor(from, to, ClashAnswer::skip);
        const std::size_t requests = phone.requestsOf(
            [&] { EXPECT_EQ(run(std::move(request)).end(), CopyOutcome::End::done); });
        EXPECT_LE(requests, files * (isUpload ? 5 : 1) + around);
    }
}

/// A cable that comes out in the middle of a large file, either way.
TEST(UnpluggedOverMTP, onlyWhatWasUnderWayComesAcrossAgain) {
    constexpr qint64 size = qint64{160} << 20;
    constexpr qint64 unplugAt = size / 10 * 7;
    for (const bool isUpload : {true, false}) {
        MTPSide phone("UNPLUGGED");
        DiskSide disk;
        CopyEnd& from = isUpload ? static_cast<CopyEnd&>(disk) : phone;
        CopyEnd& to = isUpload ? static_cast<CopyEnd&>(phone) : disk;
        QByteArray film(size, 'f');
        for (qint64 n = 0; n < size; n += 4093)
            film[n] = static_cast<char>(n / 4093);
        from.put(s("film"), film, noon);
        FileCopy copy{*from.files(), require(*from.files(), from.at(s("film")), {}), *to.files(),
                      to.root(), s("film")};
        qint64 arrived = 0;
        const auto unplugLate = [&](qint64 done) {
            arrived = done;
            if (done >= unplugAt)
                phone.unplug();
        };
        EXPECT_THROW(copyFile(copy, unplugLate, {}), Error);
        ASSERT_LT(arrived, size);
        phone.plugIn();
        copy.file = require(*from.files(), from.at(s("film")), {}); // by another handle
        qint64 first = -1;
        const auto noteFirst = [&](qint64 done) { first = first < 0 ? done : first; };
        EXPECT_EQ(copyFile(copy, noteFirst, {}).size, size);
        EXPECT_EQ(to.contents(), (Contents{{s("film"), film}}));
        // A piece, and what may not have been written out.
        EXPECT_LE(arrived - first, qint64{9} << 20) << (isUpload ? "up" : "down");
    }
}

} // namespace
} // namespace tessary
