#pragma once

#include "adb/files/ADBFileSystem.h"
#include "adb/protocol/ADBError.h"
#include "adb/server/ADBServerConnection.h"
#include "base/threads/CancellationError.h"
#include "support/ADBFixture.h"

#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <memory>

namespace tessary {

/// The code that `call` ends with, by its name in logs; "nothing" when it ends well, "cancelled"
/// after a CancellationError.
inline std::string codeOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const Error& error) {
        return error.code().name();
    } catch (const CancellationError&) {
        return "cancelled";
    }
    return "nothing";
}

/// How a phone's adbd is reached.
enum class ADBWay { server };

inline void PrintTo(ADBWay way, std::ostream* out) {
    *out << (way == ADBWay::server ? "server" : "direct");
}

/// One virtual phone and its files, by each of the ways to it.
class ADBFilesFixture : public testing::TestWithParam<ADBWay>, protected ADBPhone {
protected:
    explicit ADBFilesFixture(ADBDConfig config = {}) : ADBPhone(std::move(config)) {}

    void SetUp() override {
        connectPhone();
        files_ = open();
    }
    [[nodiscard]] PhoneIdentity identity() const {
        PhoneIdentity phone;
        phone.udid = serial();
        phone.serialNumber = serial();
        phone.name = QStringLiteral("Pixel 7");
        return phone;
    }
    [[nodiscard]] std::shared_ptr<ADBConnection> connection() const {
        ADBServerAddress address;
        address.port = server_.port();
        return std::make_shared<ADBServerConnection>(std::make_shared<ADBServerClient>(address),
                                                     ADBPhoneSought{serial(), {}});
    }
    [[nodiscard]] std::unique_ptr<ADBFileSystem> open() const {
        return std::make_unique<ADBFileSystem>(identity(), queue_, connection());
    }

    [[nodiscard]] FileItem item(const QString& path) {
        return require(*files_, path, {});
    }
    [[nodiscard]] QByteArray readAll(const FileItem& file, ByteRange range = {}) {
        QByteArray bytes;
        const qint64 count =
            files_->read(file, range,
                         [&](ByteView piece) {
                             bytes.append(reinterpret_cast<const char*>(piece.data()),
                                          static_cast<qsizetype>(piece.size()));
                         },
                         {});
        EXPECT_EQ(count, bytes.size());
        return bytes;
    }
    /// A source of these bytes.
    static ByteSource sourceOf(const QByteArray& bytes) {
        return [bytes, at = qsizetype{0}](std::span<std::byte> to) mutable {
            const auto count =
                std::min<qsizetype>(static_cast<qsizetype>(to.size()), bytes.size() - at);
            std::copy_n(reinterpret_cast<const std::byte*>(bytes.constData()) + at, count,
                        to.begin());
            at += count;
            return static_cast<std::size_t>(count);
        };
    }
    FileItem write(const QString& folder, const QString& name, const QByteArray& bytes,
                   const Call& call = {}, const ByteProgress& progress = {}) {
        return files_->write({folder, name, bytes.size(), std::nullopt}, sourceOf(bytes), progress,
                             call);
    }
    using ADBPhone::write;
    static QStringList namesIn(const Listing& listing) {
        QStringList names;
        for (const FileItem& one : listing.items)
            names.append(one.name);
        names.sort();
        return names;
    }
    [[nodiscard]] QStringList listed(const QString& folder) {
        return namesIn(listAll(*files_, folder, {}));
    }

    std::shared_ptr<PhoneQueue> queue_ = std::make_shared<PhoneQueue>();
    std::unique_ptr<ADBFileSystem> files_;
};

} // namespace tessary
