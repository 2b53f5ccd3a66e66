#pragma once

#include "support/FileServiceFixture.h"

#include <thread>

namespace tessary {

inline const QByteArray oldContent("the old version");
inline const QByteArray newContent("the new version, longer");

/// What the tests of copies to a phone share.
class UploadFixture : public FileServiceFixture {
protected:
    using FileServiceFixture::FileServiceFixture;

    void upload(const QString& file, const char* into, const FileProgressCallback& progress = {},
                const std::stop_token& stop = {}) {
        service_->uploadFile(file, QString::fromUtf8(into), phone().info, progress, stop);
    }
    TransferOutcome uploadFolder(const char* folder, const char* into,
                                 const TransferProgressCallback& progress = {},
                                 const std::stop_token& stop = {}) {
        return service_->uploadDirectory(local_.path(QString::fromUtf8(folder)),
                                         QString::fromUtf8(into), phone().info, progress, stop);
    }
    /// Waits until the phone takes the bytes of the object that is being sent. Its pipe holds some
    /// of them before that, which no cable does: real phones cannot be cancelled so early.
    void awaitReceiver() {
        const auto lastRequest = [&] {
            const auto log = phone().android.requestLog();
            return log.empty() ? 0 : log.back().operation;
        };
        while (lastRequest() != static_cast<std::uint16_t>(MTPOperationCode::sendObject))
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
    }
};

} // namespace tessary
