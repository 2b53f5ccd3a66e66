#pragma once

#include "mtp/files/MTPFileReader.h"
#include "mtp/files/MTPFileSystem.h"
#include "mtp/files/MTPPieceWriter.h"
#include "support/CodeOf.h"
#include "support/FileBytes.h"
#include "support/ManyBytes.h"
#include "support/PluggedPhone.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

namespace tessary {

/// A phone with a memory card beside its own storage.
inline VirtualAndroidConfig phoneWithCard() {
    VirtualAndroidConfig config;
    config.storages.resize(2);
    config.storages[1].description = QStringLiteral("SD card");
    config.storages[1].removable = true;
    return config;
}

/// The files of a virtual phone, over MTP.
class MTPFilesFixture : public ::testing::Test {
protected:
    explicit MTPFilesFixture(VirtualAndroidConfig config = {}) : phone_(bus_, std::move(config)) {}

    [[nodiscard]] PluggedPhone& phone() {
        return phone_;
    }
    [[nodiscard]] FileItem item(const char* path) {
        return require(files_, QString::fromUtf8(path), {});
    }
    [[nodiscard]] std::vector<FileItem> list(const char* path) {
        return listAll(files_, QString::fromUtf8(path), {}).items;
    }
    [[nodiscard]] QStringList listedNames(const char* path) {
        return namesOf(list(path));
    }
    QByteArray read(const FileItem& file, ByteRange range = {}, const Call& call = {}) {
        return readBytes(files_, file, range, call);
    }
    FileItem write(const char* folder, const QString& name, const QByteArray& content,
                   const ByteProgress& progress = {}, const Call& call = {}) {
        return files_.write({QString::fromUtf8(folder), name, content.size(), {}},
                            sourceOf(content), progress, call);
    }
    FileItem rename(const char* path, const QString& name) {
        return files_.rename(item(path), name, TakenName::refused, {});
    }
    void remove(const char* path) {
        files_.remove(item(path), {});
    }
    /// Pulls the cable and plugs it in again: every handle is another one.
    void replug() {
        phone().android.unplug();
        ASSERT_NE(phone().android.plugInto(bus_), 0U);
    }

    VirtualUSBBus bus_;

private:
    PluggedPhone phone_;

protected:
    const std::shared_ptr<PhoneQueue> queue_ = std::make_shared<PhoneQueue>();
    MTPFileSystem files_{bus_, identityOf(phone_.info), queue_};
};

} // namespace tessary
