#pragma once

#include "browser/model/FileBrowserViewModel.h"
#include "support/CopyNow.h"
#include "support/FileBytes.h"
#include "support/Gate.h"
#include "support/MainLoop.h"
#include "support/MemoryFileSystem.h"
#include "support/ShownItems.h"
#include "support/TemporaryFolder.h"

#include <initializer_list>

namespace tessary {

/// A browser over a phone in memory.
class FileBrowserFixture : public MainLoop {
protected:
    using Request = MemoryFileSystem::Request;
    using Operation = MemoryFileSystem::Operation;

    FileBrowserFixture() {
        // What is staged lies in this user's cache.
        qputenv("XDG_CACHE_HOME", QFile::encodeName(local_.makeFolder(QStringLiteral("cache"))));
    }
    ~FileBrowserFixture() override {
        files_->beforeEach({});
        EXPECT_TRUE(queue_.stop(30s));
        EXPECT_TRUE(Background::shutDown(30s)); // before what the work uses goes
    }

    /// Files of ten bytes and, where a name ends in "/", folders.
    void fill(const char* folder, std::initializer_list<const char*> entries) {
        files_->addFolder(QString::fromUtf8(folder));
        for (const char* entry : entries) {
            const QString path = joinPath(QString::fromUtf8(folder), QString::fromUtf8(entry));
            if (path.endsWith(QLatin1Char('/')))
                files_->addFolder(path.chopped(1));
            else
                files_->addFile(path, QByteArray(10, 'x'));
        }
    }
    /// Waits until nothing is under way.
    void settle() {
        ASSERT_TRUE(eventually([this] {
            return !browser_.isLoading() && !browser_.isEditing() && queue_.summary().isIdle();
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
        return namesOf(shownItems(browser_));
    }
    static QStringList ids(std::initializer_list<const char*> paths) {
        QStringList list;
        for (const char* path : paths)
            list << QString::fromUtf8(path);
        return list;
    }

    /// Requests of a kind for a path wait at the gate; until they are stopped, when they notice.
    void holdAt(Gate& gate, Operation operation, const char* path, bool noticesStop = true) {
        files_->beforeEachCall([&gate, operation, path = QString::fromUtf8(path),
                                noticesStop](const Request& request, const Call& call) {
            if (request.operation == operation && (path.isEmpty() || request.path == path))
                gate.pass(noticesStop ? call.stop : std::stop_token());
        });
    }
    [[nodiscard]] int count(Operation operation, const char* path) const {
        const std::vector<Request> all = files_->requests();
        return static_cast<int>(std::count_if(all.begin(), all.end(), [&](const Request& one) {
            return one.is(operation, QString::fromUtf8(path));
        }));
    }

    const TemporaryFolder local_;
    std::shared_ptr<MemoryFileSystem> files_ = std::make_shared<MemoryFileSystem>();
    StagedFiles staged_{QStringLiteral("files"), 100};
    CopyQueue queue_;
    FileBrowserViewModel browser_{
        queue_, {.openAndroid = [this](const DeviceInfo&) { return files_; }, .staged = staged_}};
};

} // namespace tessary
