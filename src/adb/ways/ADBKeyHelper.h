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

    [[nodiscard]] Bytes sign(ByteView token) override;
    [[nodiscard]] Bytes getPhonePublicKeyPayload() override;

private:
    [[nodiscard]] Bytes ask(const QStringList& arguments) const;

    ProcessRunner& processes_;
};

} // namespace tessary
