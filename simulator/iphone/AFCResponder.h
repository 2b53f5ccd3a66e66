#pragma once

#include "simulator/iphone/PhoneContainer.h"
#include "simulator/wire/AFCCodec.h"

#include <unordered_map>

namespace tessary {

/// AFC on a virtual iPhone, over one connection: every operation that clients and common tools use.
/// Others are "operation not supported".
class AFCResponder {
public:
    /// What lockdown calls the media folder's service; apps' documents come by house arrest.
    static inline const QString mediaService = QStringLiteral("com.apple.afc");

    AFCResponder(VirtualIPhone& phone, PhoneStream& stream, PhoneContainer container);

    /// Until one side ends it, or what comes is no AFC.
    void run();

private:
    /// What stands inside a packet's head, after the 40 bytes.
    struct Request {
        AFCHeader header;
        QString name; ///< as VirtualIPhoneRequest has it
        Bytes parameters;

        /// Both refuse with "invalid argument" what is not there.
        [[nodiscard]] std::uint64_t number(std::size_t index) const;
        /// The texts after so many numbers; each ends with NUL, the last need not.
        [[nodiscard]] std::string text(std::size_t numbers, std::size_t index = 0) const;
        /// Bytes of bulk data behind the head.
        [[nodiscard]] std::uint64_t bulkLength() const {
            return header.packetLength - header.headLength;
        }
    };

    [[nodiscard]] std::optional<Request> readRequest();
    /// False when the connection is to end.
    [[nodiscard]] bool handle(const Request& request);
    /// Carries out and answers all but reads and writes of files.
    [[nodiscard]] bool perform(const Request& request);
    [[nodiscard]] bool readFile(const Request& request);
    [[nodiscard]] bool writeFile(const Request& request, std::uint64_t refusal);
    [[nodiscard]] std::uint64_t openFile(const Request& request);
    [[nodiscard]] FileHandle& file(const Request& request);
    void seek(const Request& request);

    [[nodiscard]] QString detail(const Request& request) const;
    [[nodiscard]] bool slowDown(std::uint64_t bytes);

    [[nodiscard]] bool answerStatus(const Request& request, std::uint64_t status);
    [[nodiscard]] bool answerNumber(const Request& request, AFCOperation kind,
                                    std::uint64_t number);
    /// Texts, each with a NUL after it.
    [[nodiscard]] bool answerTexts(const Request& request, const std::vector<std::string>& texts);
    [[nodiscard]] bool answerTexts(const Request& request, const QStringList& texts);

    [[nodiscard]] bool read(std::span<std::byte> bytes);
    [[nodiscard]] bool write(ByteView bytes);

    VirtualIPhone& phone_;
    PhoneStream& stream_;
    PhoneContainer container_;
    std::unordered_map<std::uint64_t, FileHandle> files_;
    std::uint64_t lastFile_ = 0;
    Bytes buffer_; ///< one for all file content, so that none is allocated a request
};

} // namespace tessary
