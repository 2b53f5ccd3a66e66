#pragma once

#include "adb/protocol/ADBHostKey.h"
#include "platform/process/ProcessRunner.h"

#include <QStringList>

namespace tessary {

/// This computer's key as the program `tessary-adbkey` uses it: its private half and the libraries
/// for it are in no other.
class ADBKeyHelper final : public ADBHostKey {
public:
    /// `processes` must outlive it.
    explicit ADBKeyHelper(ProcessRunner& processes) : processes_(processes) {}

    [[nodiscard]] Bytes sign(ByteView token, const std::stop_token& stop) override;
    [[nodiscard]] Bytes getPhonePublicKeyPayload(const std::stop_token& stop) override;

private:
    [[nodiscard]] Bytes ask(const QStringList& arguments, const std::stop_token& stop) const;

    ProcessRunner& processes_;
};

} // namespace tessary
