#pragma once

#include "platform/ProcessRunner.h"

namespace tessary {

/// Child processes of this machine.
class QtProcessRunner final : public ProcessRunner {
public:
    [[nodiscard]] ProcessResult run(const QString& program, const QStringList& arguments,
                                    std::chrono::milliseconds limit) override;
};

} // namespace tessary
