#pragma once

#include "adb/protocol/ADBMessage.h"
#include "base/local/FileHandle.h"
#include "simulator/adbd/ADBDService.h"
#include "simulator/adbd/VirtualADBD.h"

#include <map>
#include <memory>
#include <string>

namespace tessary {

/// One connection of a host to a virtual adbd: CNXN with or without AUTH, and the streams on it.
/// A stream sends one WRTE at a time and waits for its OKAY.
class ADBDConnection {
public:
    ADBDConnection(std::shared_ptr<ADBDState> state, FileHandle socket);
    ~ADBDConnection();

    /// Serves the host until the connection ends. On one thread.
    void run();
    /// Cuts the connection. From any thread.
    void cut();

private:
    struct Stream {
        std::uint32_t remoteID = 0;
        std::unique_ptr<ADBDService> service;
        bool awaitsOkay = false;
    };
    using Streams = std::map<std::uint32_t, Stream>;

    [[nodiscard]] bool readExactly(std::byte* to, std::size_t count);
    void workAhead();
    [[nodiscard]] bool serveOne();
    [[nodiscard]] std::size_t largestOwnPayload() const;
    [[nodiscard]] bool handle(ADBMessage&& message);
    [[nodiscard]] bool greet();
    [[nodiscard]] bool authenticate(const ADBMessage& message);
    [[nodiscard]] bool askForSignature();
    [[nodiscard]] bool open(const ADBMessage& message);
    [[nodiscard]] std::unique_ptr<ADBDService> makeService(const std::string& name);
    [[nodiscard]] bool write(const ADBMessage& message);
    [[nodiscard]] bool pump(Streams::iterator stream);
    [[nodiscard]] bool send(ADBCommand command, std::uint32_t arg0, std::uint32_t arg1,
                            Bytes payload = {});

    const std::shared_ptr<ADBDState> state_;
    const FileHandle socket_;
    bool isGreeted_ = false;
    std::size_t largestPayload_ = ADBConstants::maxPayloadV1; ///< that the host takes
    Bytes token_;
    Bytes waitingKey_; ///< of a host that the person with the phone has not allowed yet
    Streams streams_;  ///< by their id here
    std::uint32_t lastID_ = 0;
};

} // namespace tessary
