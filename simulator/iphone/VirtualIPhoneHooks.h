#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tessary {

/// What happens to a connection.
enum class VirtualCut {
    unplug, ///< the phone goes: all its connections end
    close,  ///< this connection ends
    stall,  ///< nothing moves any more
};

/// Bytes of any kind.
struct VirtualRawAnswer {
    QByteArray bytes;
    bool isEndless = false; ///< again and again, until the other side ends it
};

enum class VirtualDirection { toHost, toPhone };

/// What may step in while a virtual iPhone works; this one never does, and a phone with it does
/// everything right. Requests are named after service and request: "lockdown.StartSession",
/// "houseArrest.VendDocuments", "installationProxy.Browse", "afc.readDir" (see
/// `AFCCodec::requestName`). Called on the threads of the connections, several at a time.
class VirtualIPhoneHooks {
public:
    /// `megabytesPerSecond` (of 10^6 bytes) is the pace of files' contents; 0 for no limit.
    explicit VirtualIPhoneHooks(double megabytesPerSecond = 0) : pace_(megabytesPerSecond) {}
    virtual ~VirtualIPhoneHooks() = default;
    VirtualIPhoneHooks(const VirtualIPhoneHooks&) = delete;
    VirtualIPhoneHooks& operator=(const VirtualIPhoneHooks&) = delete;

    /// A request came: `detail` is a path, a key or a service, `number` a length where it has one.
    virtual void requested(const QString& /*request*/, const QString& /*detail*/,
                           std::uint64_t /*number*/) {}
    /// How long the request waits; no value: it is not answered at all.
    [[nodiscard]] virtual std::optional<std::chrono::milliseconds> delay(const QString&) {
        return std::chrono::milliseconds(0);
    }
    /// What becomes of the connection at this request: before it is carried out, or afterwards with
    /// its answer lost.
    [[nodiscard]] virtual std::optional<VirtualCut> cutAt(const QString& /*request*/,
                                                          bool /*afterwards*/) {
        return std::nullopt;
    }
    /// How many of these bytes may still move over AFC before the connection is cut.
    [[nodiscard]] virtual std::size_t allowed(VirtualDirection, std::size_t bytes,
                                              std::optional<VirtualCut>& /*cut*/) {
        return bytes;
    }

    /// Bytes that go out in the place of the answer, after which the connection ends.
    [[nodiscard]] virtual std::optional<VirtualRawAnswer> rawAnswer(const QString&) {
        return std::nullopt;
    }

    // Refusals

    /// With an empty text the session's connection ends.
    [[nodiscard]] virtual std::optional<QString> handshakeError() {
        return std::nullopt;
    }
    /// The AFC status that a request is refused with; 0 for none.
    [[nodiscard]] virtual std::uint64_t status(const QString& /*request*/) {
        return 0;
    }

    // Files

    /// May change the names that a folder's list holds.
    virtual void listing(std::vector<std::string>& /*names*/) {}
    /// The keys and values of a file's information.
    [[nodiscard]] virtual QStringList fileInfo(const QString& /*path*/, QStringList pairs) {
        return pairs;
    }
    /// Answers to reads hold at most so many bytes; 0 for no limit.
    [[nodiscard]] virtual std::uint64_t longestRead() {
        return 0;
    }
    /// Status 18 for what would make a file longer than this.
    [[nodiscard]] virtual std::optional<std::uint64_t> storeFullAfter() {
        return std::nullopt;
    }
    /// Asked of each piece of a file's content on its way, either direction; true changes a byte.
    [[nodiscard]] virtual bool garbles() {
        return false;
    }
    [[nodiscard]] virtual double megabytesPerSecond() {
        return pace_;
    }

private:
    const double pace_;
};

} // namespace tessary
