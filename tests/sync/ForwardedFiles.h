#pragma once

#include "phone/PhoneFileSystem.h"

#include <functional>

namespace tessary {

/// A file system with somebody in between: called before each call to it, and before each piece
/// that is written, where it may throw.
class ForwardedFiles : public PhoneFileSystem {
public:
    explicit ForwardedFiles(PhoneFileSystem& files) : files_(files) {}

    std::function<void()> beforeCall;
    std::function<void()> beforePiece;
    bool datesItself = false; ///< whatever date a new file is to have

    QString identity() const override {
        return files_.identity();
    }
    QString displayName() const override {
        return files_.displayName();
    }
    FileTreeRoot rootOf(const QString& path) const override {
        return files_.rootOf(path);
    }
    QString canonicalPath(const QString& path) const override {
        return files_.canonicalPath(path);
    }
    std::shared_ptr<PhoneQueue> queue() const override {
        return files_.queue();
    }
    FileSystemCapabilities capabilities(const Call& call) override {
        return files_.capabilities(call);
    }
    NameRules nameRules(const QString& folder, const Call& call) override {
        return files_.nameRules(folder, call);
    }
    void list(const QString& folder, const ListingReceiver& receiver, const Call& call) override {
        come();
        files_.list(folder, receiver, call);
    }
    std::optional<FileItem> find(const QString& path, const Call& call) override {
        come();
        return files_.find(path, call);
    }
    qint64 read(const FileItem& file, ByteRange range, const ByteSink& sink,
                const Call& call) override {
        come();
        return files_.read(file, range, sink, call);
    }
    FileItem write(const NewFile& file, const ByteSource& content, const ByteProgress& progress,
                   const Call& call) override {
        come();
        const ByteSource source = [&](std::span<std::byte> into) {
            if (beforePiece)
                beforePiece();
            return content(into);
        };
        return files_.write(
            {file.folder, file.name, file.size, datesItself ? std::nullopt : file.modified}, source,
            progress, call);
    }
    std::vector<std::optional<QByteArray>> readTogether(const std::vector<FileItem>& files,
                                                        const Call& call) override {
        come();
        return files_.readTogether(files, call);
    }
    std::vector<std::optional<FileItem>>
    writeTogether(const QString& folder, const std::vector<SmallFile>& files,
                  const std::function<bool(std::size_t)>& isWanted, const ByteProgress& progress,
                  const Call& call) override {
        come();
        return files_.writeTogether(
            folder, files,
            [&](std::size_t place) {
                if (beforePiece)
                    beforePiece();
                return isWanted(place);
            },
            progress, call);
    }
    FileItem makeFolder(const QString& parent, const QString& name, const Call& call) override {
        come();
        return files_.makeFolder(parent, name, call);
    }
    void remove(const FileItem& item, const Call& call) override {
        come();
        files_.remove(item, call);
    }
    FileItem rename(const FileItem& item, const QString& newName, TakenName taken,
                    const Call& call) override {
        come();
        return files_.rename(item, newName, taken, call);
    }
    FileItem move(const FileItem& item, const QString& newFolder, const Call& call) override {
        come();
        return files_.move(item, newFolder, call);
    }
    void setModified(const FileItem& file, const QDateTime& date, const Call& call) override {
        come();
        files_.setModified(file, date, call);
    }
    std::optional<std::uint64_t> freeBytes(const QString& folder, const Call& call) override {
        return files_.freeBytes(folder, call);
    }
    std::optional<QByteArray> hash(const FileItem& file, const Call& call) override {
        come();
        return files_.hash(file, call);
    }

private:
    void come() const {
        if (beforeCall)
            beforeCall();
    }

    PhoneFileSystem& files_;
};

} // namespace tessary
