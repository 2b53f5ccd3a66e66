#pragma once

#include "FuzzTarget.h"
#include "base/local/LocalError.h"
#include "base/threads/CancellationError.h"
#include "phone/PhoneFileSystem.h"
#include "support/TemporaryFolder.h"
#include "transfer/copy/TreeCopy.h"
#include "transfer/local/LocalFileSystem.h"

#include <QDirIterator>

#include <algorithm>
#include <memory>

namespace tessary {

/// What people do with a phone, through everything that stands above its file system. Whatever the
/// phone answers, each step ends well or with an error that the layers above can decide on; nothing
/// lies outside of the folder that was copied into, and nothing is longer than it was announced.
class PhoneErrand {
public:
    explicit PhoneErrand(std::shared_ptr<PhoneFileSystem> phone) : phone_(std::move(phone)) {
        box_.write(QStringLiteral("beside"), "untouched");
        box_.makeFolder(QStringLiteral("target"));
    }

    void run(const QString& folder) {
        attempt([&] { (void)phone_->capabilities({}); });
        attempt([&] { (void)phone_->liveInfo({}); });
        attempt([&] { items_ = listAll(*phone_, folder, {}).items; });
        for (const FileItem& item : items_)
            require(!item.path.isEmpty() && item.size >= 0);
        items_.resize(std::min<std::size_t>(items_.size(), 4));
        download();
        edit(folder);
    }

private:
    static void check(const Error& error) {
        require(error.code().as<PhoneError>() || error.code().as<LocalError>());
    }
    template <typename Work>
    static void attempt(Work work) {
        try {
            work();
        } catch (const Error& error) {
            check(error);
        }
    }

    void download() {
        const QString target = box_.path(QStringLiteral("target"));
        TreeCopyRequest request{
            .from = phone_, .to = std::make_shared<LocalFileSystem>(target), .folder = target};
        constexpr qint64 most = qint64{1} << 40; // sizes are the phone's, and can be any
        qint64 announced = 0;
        bool hasFolders = false;
        for (const FileItem& item : items_) {
            request.items.push_back({item, item.name});
            announced += std::min(item.size, most);
            hasFolders |= item.isDirectory;
        }
        const CopyOutcome outcome = TreeCopy(std::move(request)).run({}, {});
        for (const LeftOut& one : outcome.leftOut)
            check(one.error);
        if (outcome.failure)
            check(*outcome.failure);

        require(box_.names() == QStringList{QStringLiteral("beside"), QStringLiteral("target")});
        require(box_.read(QStringLiteral("beside")) == "untouched");
        qint64 files = 0;
        qint64 bytes = 0;
        QDirIterator walk(target, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                          QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            walk.next();
            require(!walk.fileInfo().isSymLink());
            files += walk.fileInfo().isFile() ? 1 : 0;
            bytes += walk.fileInfo().isFile() ? walk.fileInfo().size() : 0;
        }
        require(outcome.end() != CopyOutcome::End::done || files == outcome.files);
        constexpr qint64 mayHaveGrown = 1 << 20;
        require(hasFolders || bytes <= announced + files * mayHaveGrown);
    }

    void edit(const QString& folder) {
        const QByteArray content(700, 'c');
        const auto source = [&content, at = qsizetype{0}](std::span<std::byte> to) mutable {
            const auto count = std::min(to.size(), static_cast<std::size_t>(content.size() - at));
            std::copy_n(reinterpret_cast<const std::byte*>(content.constData()) + at, count,
                        to.begin());
            at += static_cast<qsizetype>(count);
            return count;
        };
        attempt([&] { (void)phone_->freeBytes(folder, {}); });
        attempt([&] {
            const FileItem made = phone_->write(
                {folder, QStringLiteral("new.txt"), content.size(), {}}, source, {}, {});
            require(made.name == QStringLiteral("new.txt"));
        });
        attempt([&] { (void)phone_->makeFolder(folder, QStringLiteral("new"), {}); });
        for (const FileItem& item : items_) {
            attempt([&] { (void)phone_->thumbnail(item, 1 << 16, {}); });
            attempt([&] {
                (void)phone_->rename(item, QStringLiteral("other"), TakenName::refused, {});
            });
            attempt([&] { phone_->removeTree(item, {}); });
        }
    }

    const TemporaryFolder box_;
    const std::shared_ptr<PhoneFileSystem> phone_;
    std::vector<FileItem> items_;
};

} // namespace tessary
