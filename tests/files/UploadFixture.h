#pragma once

#include "support/FileServiceFixture.h"

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
    /// A virtual cable holds fewer bytes: once they are sent, the phone takes the object. Real
    /// phones cannot be cancelled earlier either.
    static constexpr qint64 certainlyReceived = 1'200'000;
};

} // namespace tessary
