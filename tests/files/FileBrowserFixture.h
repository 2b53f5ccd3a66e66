#pragma once

#include "browser/model/FileBrowserViewModel.h"
#include "files/FakeFileAccess.h"
#include "support/MainLoop.h"
#include "support/TemporaryFolder.h"

#include <initializer_list>

namespace tessary {

/// A browser over a scripted device.
class FileBrowserFixture : public MainLoop {
protected:
    ~FileBrowserFixture() override {
        files_->setScript({});
        EXPECT_TRUE(Background::shutDown(30s)); // before what the work uses goes
    }

    void fill(const char* folder, std::initializer_list<const char*> entries) {
        QStringList list;
        for (const char* entry : entries)
            list << QString::fromUtf8(entry);
        files_->fill(QString::fromUtf8(folder), list);
    }
    /// Waits until nothing is under way.
    void settle() {
        ASSERT_TRUE(eventually([this] {
            return !browser_.isLoading() && !browser_.isEditing() && transfers_.summary().isIdle();
        }));
    }
    void open(const char* path) {
        browser_.open(files_, std::nullopt, QString::fromUtf8(path));
        settle();
    }
    void go(const char* path) {
        browser_.navigateTo(QString::fromUtf8(path));
        settle();
    }
    [[nodiscard]] QStringList names() const {
        QStringList names;
        for (const FileItem& item : browser_.filteredItems())
            names << item.name;
        return names;
    }
    static QStringList ids(std::initializer_list<const char*> paths) {
        QStringList list;
        for (const char* path : paths)
            list << QString::fromUtf8(path);
        return list;
    }

    const TemporaryFolder local_;
    std::shared_ptr<FakeFileAccess> files_ = std::make_shared<FakeFileAccess>();
    PreviewCache previews_{local_.path(QStringLiteral("TessaryCache")), 100};
    TransferEngine engine_;
    TransferViewModel transfers_{engine_};
    FileBrowserViewModel browser_{transfers_,
                                  {.openAndroid = [this](const DeviceInfo&) { return files_; },
                                   .previews = &previews_,
                                   .clock = {}}};
};

} // namespace tessary
