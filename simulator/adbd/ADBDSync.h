#pragma once

#include "adb/protocol/ADBSyncCodec.h"
#include "base/local/FileHandle.h"
#include "simulator/adbd/ADBDFiles.h"
#include "simulator/adbd/ADBDService.h"
#include "simulator/adbd/VirtualADBD.h"

#include <string>

namespace tessary {

/// The sync service of a virtual adbd: STAT, STA2, LST2, LIST, LIS2, RECV and SEND. A push that is
/// not finished when the service goes leaves no file.
class ADBDSync : public ADBDService {
public:
    explicit ADBDSync(ADBDState& state);
    ~ADBDSync() override;
    ADBDSync(const ADBDSync&) = delete;
    ADBDSync& operator=(const ADBDSync&) = delete;

    void receive(ByteView bytes) override;
    [[nodiscard]] Bytes produce(std::size_t most) override;
    [[nodiscard]] bool workAhead() override;
    [[nodiscard]] bool isOver() const override {
        return isOver_ && out_.empty();
    }

private:
    void take(ByteView bytes);
    void serve(ADBSyncCommand command, const std::string& path);
    void appendFacts(const struct stat& status, std::uint64_t size);
    void answerStat(ADBSyncCommand command, const std::string& path);
    void beginList(const std::string& path, bool isNew);
    void appendEntry(const ADBDEntry& entry);
    void appendEntries(std::size_t most);
    void beginPull(const std::string& path);
    void appendContent(std::size_t most);
    void beginPush(const std::string& pathAndMode);
    void takePushRecord(ByteView bytes);
    void writePushed(ByteView bytes);
    void endPush(std::uint32_t mtime);
    void fail(const std::string& message);
    void slowDown(std::size_t bytes) const;

    ADBDState& state_;
    const ADBDFiles files_;
    Bytes in_;      ///< a request that is not complete
    Bytes waiting_; ///< what came while a file was pulled or a folder listed
    Bytes out_;     ///< answers that were not taken
    bool isOver_ = false;

    /// One request after another: what comes meanwhile waits.
    [[nodiscard]] bool isAnswering() const {
        return pulled_.isOpen() || listed_.has_value();
    }

    FileHandle pulled_;
    std::optional<ADBDFolder> listed_;
    bool listsNew_ = false; ///< in records of the second version

    bool isPushing_ = false;
    FileHandle pushed_;      ///< closed after a failure: what still comes is thrown away
    std::string pushedPath_; ///< on this machine; empty when nothing has to be removed
    std::uint64_t pushedBytes_ = 0;
    std::size_t chunkLeft_ = 0; ///< bytes of the DATA record under way
};

} // namespace tessary
