#pragma once

#include "mtp/objects/MTPTree.h"
#include "phone/PhoneFileSystem.h"

#include <chrono>

namespace tessary {

/// One listing of a folder: its rows are handed over in bundles while others still come.
class MTPListing {
public:
    /// `receiver` outlives it.
    MTPListing(QString folder, const ListingReceiver& receiver)
        : folder_(std::move(folder)), receiver_(receiver) {}

    /// Reads the folder. The last rows are still to be handed over then.
    void read(MTPTree& tree, const std::stop_token& stop);
    void handOver();

private:
    void add(const MTPObjectInfo& info, const MTPLocation& folder);
    void addUnreadable(std::uint32_t handle, const MTPFailure& failure, const MTPLocation& folder);

    const QString folder_;
    const ListingReceiver& receiver_;
    std::vector<FileItem> rows_; ///< not handed over yet
    std::chrono::steady_clock::time_point handedOver_ = std::chrono::steady_clock::now();
};

} // namespace tessary
