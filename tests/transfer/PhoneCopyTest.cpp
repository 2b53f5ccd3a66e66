#include "mtp/files/MTPFileSystem.h"
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

INSTANTIATE_TEST_SUITE_P(Ways, TreeCopyOverWays,
                         testing::Values(Way{"downloadOverMTP", overMTP, aDisk},
                                         Way{"uploadOverMTP", aDisk, overMTP},
                                         Way{"fromPhoneToPhone", overMTP, overMTPToAnother}),
                         [](const auto& way) { return way.param.name; });

} // namespace
} // namespace tessary
