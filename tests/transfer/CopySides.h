#pragma once

#include "support/MemoryFileSystem.h"
#include "support/TemporaryFolder.h"
#include "transfer/copy/TreeCopy.h"
#include "transfer/local/LocalFileSystem.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QMap>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessary {

/// Files by their paths below the side's root; folders end in "/" and have no content.
using Contents = QMap<QString, QByteArray>;

/// One end of a copy in a test: a file system, and a way around it to fill it and to look at it.
class CopyEnd {
public:
    virtual ~CopyEnd() = default;

    [[nodiscard]] virtual std::shared_ptr<PhoneFileSystem> files() = 0;
    [[nodiscard]] virtual QString root() const = 0;
    virtual void put(const QString& path, const QByteArray& content, const QDateTime& date) = 0;
    virtual void putFolder(const QString& path) = 0;
    /// An empty file in a folder, by a name that is no text.
    virtual void putNameless(const QString& folder) = 0;
    /// Changes the first byte of a file and nothing else.
    virtual void damage(const QString& path) = 0;
    [[nodiscard]] virtual Contents contents() const = 0;

    void fill(const Contents& contents, const QDateTime& date) {
        for (auto entry = contents.begin(); entry != contents.end(); ++entry) {
            if (entry.key().endsWith(QLatin1Char('/')))
                putFolder(entry.key().chopped(1));
            else
                put(entry.key(), entry.value(), date);
        }
    }
    [[nodiscard]] QString at(const QString& path) const {
        return path.isEmpty() ? root() : joinPath(root(), path);
    }
    /// Everything at the top of it.
    [[nodiscard]] std::vector<FileItem> items() {
        return listAll(*files(), root(), {}).items;
    }
};

/// A phone, whose cable can come out.
class PhoneEnd : public virtual CopyEnd {
public:
    virtual void unplug() = 0;
    virtual void plugIn() = 0;
    /// No file becomes longer than that.
    virtual void fillUpAt(qint64 bytes) = 0;
    virtual void becomeReadOnly() = 0;
    /// A byte of the next content that moves, either way, arrives as another one.
    virtual void garbleNext() = 0;
    virtual void becomeSound() = 0;
};

class MemorySide : public virtual CopyEnd {
public:
    explicit MemorySide(MemoryFileSystem::Options options = {})
        : memory(std::make_shared<MemoryFileSystem>(std::move(options))) {
        memory->addFolder(root());
    }

    [[nodiscard]] std::shared_ptr<PhoneFileSystem> files() override {
        return memory;
    }
    [[nodiscard]] QString root() const override {
        return QStringLiteral("/side");
    }
    void put(const QString& path, const QByteArray& content, const QDateTime& date) override {
        memory->addFile(at(path), content, date);
    }
    void putFolder(const QString& path) override {
        memory->addFolder(at(path));
    }
    void putNameless(const QString& folder) override {
        memory->addHostile(at(folder), QString(QChar(0xD800)), {});
    }
    [[nodiscard]] Contents contents() const override {
        Contents found;
        for (const QString& path : memory->tree())
            if (path.startsWith(joinPath(root(), {})) && path != joinPath(root(), {}))
                found[path.mid(root().size() + 1)] = memory->content(path);
        return found;
    }

    void damage(const QString& path) override {
        QByteArray content = memory->content(at(path));
        content[0] = static_cast<char>(~content[0]);
        memory->addFile(at(path), content, memory->item(at(path)).modifiedDate);
    }

    const std::shared_ptr<MemoryFileSystem> memory;
};

class MemoryPhone final : public MemorySide, public PhoneEnd {
public:
    using MemorySide::MemorySide;

    void unplug() override {
        memory->loseLink(0);
    }
    void plugIn() override {
        memory->restoreLink();
    }
    void fillUpAt(qint64 bytes) override {
        memory->failAfterBytes(Operation::write, {}, bytes, {PhoneError::full}, 1000);
    }
    void becomeReadOnly() override {
        memory->fail(Operation::write, {}, {PhoneError::writeProtected});
    }
    void garbleNext() override {
        memory->garbleNext();
    }
    void becomeSound() override {
        memory->forgetFaults();
    }

private:
    using Operation = MemoryFileSystem::Operation;
};

/// A side whose files lie in a folder of this computer: the disk itself, or a virtual phone.
class FolderSide : public virtual CopyEnd {
public:
    ~FolderSide() override {
        ::unlink(nameless_.constData()); // whoever removes the folder does not reach it
    }
    FolderSide(const FolderSide&) = delete;
    FolderSide& operator=(const FolderSide&) = delete;

    void put(const QString& path, const QByteArray& content, const QDateTime& date) override {
        disk_.write(inFolder(path), content);
        const timespec at{date.toSecsSinceEpoch(), 0};
        const timespec times[] = {at, at};
        ::utimensat(AT_FDCWD, disk_.path(inFolder(path)).toUtf8().constData(), times, 0);
    }
    void putFolder(const QString& path) override {
        disk_.makeFolder(inFolder(path));
    }
    void putNameless(const QString& folder) override {
        nameless_ = disk_.path(inFolder(folder)).toUtf8() + "/\xff.txt";
        ::close(::open(nameless_.constData(), O_CREAT | O_WRONLY, S_IRUSR | S_IWUSR));
    }
    void damage(const QString& path) override {
        QFile file(disk_.path(inFolder(path)));
        char first = 0;
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.getChar(&first) && file.seek(0) &&
                    file.putChar(static_cast<char>(~first)));
    }
    /// A file of zeros that takes no room, below a side of a phone or of the disk.
    void putSparse(const QString& path, qint64 size) {
        disk_.writeSparse(inFolder(path), size);
    }
    [[nodiscard]] Contents contents() const override {
        Contents found;
        const QString top = disk_.path(inFolder({}));
        QDirIterator walk(top, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                          QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            const QString path = walk.next().mid(top.size());
            if (walk.fileInfo().isDir())
                found[path + QLatin1Char('/')] = {};
            else
                found[path] = disk_.read(inFolder(path));
        }
        return found;
    }

protected:
    /// `folder` of `disk`, which outlives this.
    FolderSide(const TemporaryFolder& disk, QString folder)
        : disk_(disk), folder_(std::move(folder)) {
        disk_.makeFolder(folder_);
    }

private:
    [[nodiscard]] QString inFolder(const QString& path) const {
        return folder_ + QLatin1Char('/') + path;
    }

    const TemporaryFolder& disk_;
    const QString folder_;
    QByteArray nameless_;
};

struct OwnFolder {
    const TemporaryFolder disk;
};

class DiskSide final : private OwnFolder, public FolderSide {
public:
    DiskSide() : FolderSide(disk, QStringLiteral("side")) {}

    [[nodiscard]] std::shared_ptr<PhoneFileSystem> files() override {
        return files_;
    }
    [[nodiscard]] QString root() const override {
        return files_->folder();
    }

private:
    const std::shared_ptr<LocalFileSystem> files_ =
        std::make_shared<LocalFileSystem>(disk.path(QStringLiteral("side")));
};

inline const QDateTime noon = QDateTime::fromSecsSinceEpoch(1'700'000'000);

/// Long enough to be read by a thread.
inline const QByteArray film(1'300'001, 'f');

inline QString s(const char* text) {
    return QString::fromUtf8(text);
}

/// Everything at the top of one side, to the other.
[[nodiscard]] inline TreeCopyRequest requestFor(CopyEnd& from, CopyEnd& to, ClashAnswer answer) {
    TreeCopyRequest request{.from = from.files(), .to = to.files(), .folder = to.root()};
    request.policy = [answer](const Clash&) { return answer; };
    for (const FileItem& item : from.items())
        request.items.push_back({item, item.name});
    return request;
}

[[nodiscard]] inline CopyOutcome run(TreeCopyRequest request) {
    return TreeCopy(std::move(request)).run({}, {});
}

/// "name: code", sorted.
[[nodiscard]] inline QStringList namesLeftOut(const CopyOutcome& outcome) {
    QStringList names;
    for (const LeftOut& one : outcome.leftOut)
        names << one.item.name + QStringLiteral(": ") +
                     QString::fromLatin1(one.error.code().name());
    names.sort();
    return names;
}

} // namespace tessary
