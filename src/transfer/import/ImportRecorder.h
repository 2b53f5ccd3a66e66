#pragma once

#include "transfer/copy/CopyTypes.h"
#include "transfer/import/ImportLedger.h"
#include "transfer/local/LocalFileSystem.h"

#include <chrono>
#include <memory>
#include <vector>

namespace tessary {

/// Keeps a ledger of what an import brings. A record is written only once the copy lies on the disk
/// for good: no photo counts as fetched that a power cut can take. So records wait for each other
/// for a while; those that a killed program had not written are found again by their copies.
class ImportRecorder final : public CopyWitness {
public:
    ImportRecorder(std::shared_ptr<ImportLedger> ledger, std::shared_ptr<LocalFileSystem> to)
        : ledger_(std::move(ledger)), to_(std::move(to)) {}

    void copied(const CopyItem& item, const FileItem& copy, const QByteArray& sha256) override;
    [[nodiscard]] std::optional<Error> ended() override;

private:
    /// Waits for the disk and writes what waits; what cannot be written waits on.
    [[nodiscard]] std::optional<Error> write();

    const std::shared_ptr<ImportLedger> ledger_;
    const std::shared_ptr<LocalFileSystem> to_;
    std::vector<ImportRecord> waiting_;
    std::chrono::steady_clock::time_point since_; ///< when the first of them came
};

} // namespace tessary
