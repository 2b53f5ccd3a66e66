#pragma once

#include "base/local/FileHandle.h"
#include "simulator/iphone/VirtualIPhone.h"

#include <condition_variable>
#include <functional>
#include <list>
#include <thread>

namespace tessary {

/// The multiplexer daemon that iPhones are reached through: it listens on a Unix socket, lists the
/// phones that are plugged in, tells of their coming and going and connects hosts to their ports.
/// Thread-safe. It runs on threads of its own, one a connection.
class VirtualMux {
public:
    static constexpr const char* systemBUID = "30142955-4442-0000-0000-000000000000";

    /// Results, as the daemon numbers them.
    enum class Result : std::uint32_t {
        ok = 0,
        badCommand = 1,
        badDevice = 2,
        connectionRefused = 3,
        badVersion = 6,
    };

    /// Listens from now on. A socket that a dead program left at the path is replaced. Throws
    /// std::runtime_error when it cannot listen there; a path has at most 107 bytes.
    /// `whenAsked` is told what is asked of the daemon itself ("mux.ListDevices", "mux.Connect",
    /// …), with the pair record's and the device's id; on any thread.
    using WhenAsked =
        std::function<void(const QString& request, const QString& record, std::uint64_t deviceID)>;
    explicit VirtualMux(const QString& socketPath, WhenAsked whenAsked = {});
    /// Ends every connection and removes the socket. The phones are unplugged.
    virtual ~VirtualMux();
    VirtualMux(const VirtualMux&) = delete;
    VirtualMux& operator=(const VirtualMux&) = delete;

    /// What USBMUXD_SOCKET_ADDRESS has to say for libraries and tools to find it.
    [[nodiscard]] QByteArray address() const;
    /// Sets that variable for this process and its children. Before any library is called that
    /// reads it, and before there are threads that read the environment.
    void useInThisProcess() const;

private:
    friend class VirtualIPhone;
    friend class MuxSession;

    struct Attachment {
        std::uint32_t id = 0;
        VirtualIPhone* phone = nullptr;
        VirtualLink link = VirtualLink::cable;
    };
    /// A socket that connections come in at; without a phone the daemon's own.
    struct Door {
        FileHandle socket;
        VirtualIPhone* phone = nullptr;
        std::uint16_t port = 0;
    };
    struct Connection {
        FileHandle socket;
        VirtualIPhone* phone = nullptr; ///< whose port it is connected to
        VirtualLink link = VirtualLink::cable;
        bool listens = false;
        std::uint32_t listenTag = 0;
        bool isDone = false;
        std::jthread thread;
    };

    // For phones.
    std::uint32_t attach(VirtualIPhone& phone, VirtualLink link);
    void detach(VirtualIPhone& phone, VirtualLink link);
    [[nodiscard]] bool isAttached(const VirtualIPhone& phone, VirtualLink link) const;
    /// Tells whoever listens that a phone has been paired.
    void tellPaired(const QString& udid);
    void openWifiDoor(VirtualIPhone& phone, std::uint16_t port);

    // For sessions.
    [[nodiscard]] QVariantList deviceList() const;
    /// Answers the request and tells of every phone, now and from now on.
    void listen(Connection& connection, std::uint32_t tag);
    /// The phone whose port the connection may go to; null with the reason in `result`.
    [[nodiscard]] VirtualIPhone* connectTo(Connection& connection, std::uint32_t deviceID,
                                           std::uint16_t port, Result& result);
    [[nodiscard]] QByteArray pairRecord(const QString& udid);
    void savePairRecord(const QString& udid, const QByteArray& record);
    [[nodiscard]] bool deletePairRecord(const QString& udid);

    void acceptConnections(const std::stop_token& stop);
    void accept(int door);
    void start(FileHandle socket, VirtualIPhone* phone, std::uint16_t port);
    void wake();
    void tellPairedLocked(const QString& udid);
    void tellAll(const QVariantMap& event);
    void tell(Connection& connection, const QVariantMap& event);
    [[nodiscard]] bool uses(const Connection& connection, const VirtualIPhone& phone,
                            VirtualLink link) const;

    const QString path_;
    const WhenAsked whenAsked_;
    FileHandle wakeIn_;
    FileHandle wakeOut_;

    mutable std::mutex mutex_; ///< guards all below
    std::condition_variable connectionEnded_;
    std::uint32_t lastID_ = 0;
    std::vector<Attachment> attachments_;
    std::list<Door> doors_;
    std::list<Connection> connections_;
    std::map<QString, QByteArray> records_; ///< saved by hosts; an empty one was deleted

    std::jthread acceptor_;
};

} // namespace tessary
