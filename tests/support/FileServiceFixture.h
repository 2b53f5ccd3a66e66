#pragma once

#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "devices/files/DeviceFileService.h"
#include "support/FakeProcessRunner.h"
#include "support/ManyBytes.h"
#include "support/PluggedPhone.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessary {

/// A phone with a memory card beside its own storage.
inline VirtualAndroidConfig twoStorages() {
    VirtualAndroidConfig config;
    config.storages.resize(2);
    config.storages[1].description = QStringLiteral("SD card");
    config.storages[1].removable = true;
    return config;
}

/// A file service over a virtual bus, with one phone plugged in unless a test wants others.
class FileServiceFixture : public testing::Test {
protected:
    explicit FileServiceFixture(VirtualAndroidConfig config = {}) {
        plugIn(std::move(config));
    }
    ~FileServiceFixture() override {
        phone_.reset(); // unplugged before the service and the bus go
    }

    /// Puts another phone in the place of the one that is plugged in.
    void plugIn(VirtualAndroidConfig config) {
        phone_.reset();
        phone_ = std::make_unique<PluggedPhone>(bus_, std::move(config));
    }
    [[nodiscard]] PluggedPhone& phone() {
        return *phone_;
    }
    [[nodiscard]] FileItem item(const char* path) {
        return service_->itemAt(QString::fromUtf8(path), phone().info);
    }
    [[nodiscard]] std::vector<FileItem> list(const char* path) {
        return service_->listDirectory(QString::fromUtf8(path), phone().info);
    }
    [[nodiscard]] QStringList listedNames(const char* path) {
        QStringList names;
        for (const FileItem& entry : list(path))
            names.append(entry.name);
        return names;
    }
    /// Pulls the cable and plugs it in again: every handle is another one.
    void replug() {
        phone().android.unplug();
        ASSERT_NE(phone().android.plugInto(bus_), 0U);
    }

    /// The text of the TessaryError or MTPTransportError that `work` throws; empty without one.
    template <typename Work>
    static QString failureOf(Work work) {
        try {
            work();
        } catch (const TessaryError& error) {
            return error.message();
        } catch (const MTPTransportError& error) {
            return error.description();
        }
        return {};
    }

    template <typename Work>
    static bool fails(Work work) {
        return !failureOf(work).isEmpty();
    }

    /// Sorted.
    static QStringList skippedPaths(const TransferOutcome& outcome) {
        QStringList paths;
        for (const SkippedItem& skipped : outcome.skipped)
            paths.append(skipped.path);
        paths.sort();
        return paths;
    }

    VirtualUSBBus bus_;
    FakeProcessRunner processes_;
    const TemporaryFolder local_; ///< this computer's side
    std::unique_ptr<DeviceFileService> service_ =
        std::make_unique<DeviceFileService>(bus_, processes_);

private:
    std::unique_ptr<PluggedPhone> phone_;
};

} // namespace tessary
