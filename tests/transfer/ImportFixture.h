#pragma once

#include "support/MemoryFileSystem.h"
#include "support/TemporaryFolder.h"
#include "transfer/import/Import.h"
#include "transfer/import/ImportRemoval.h"

#include <QDirIterator>

namespace tessary {

inline const QDateTime lunch(QDate(2026, 5, 17), QTime(12, 30, 15));

/// A phone in memory whose camera has taken pictures, and an import of them into a folder here.
class ImportFixture {
public:
    explicit ImportFixture(const QString& udid = QStringLiteral("PHONE1"))
        : phone(std::make_shared<MemoryFileSystem>(MemoryFileSystem::Options{
              .identity = udid, .queue = std::make_shared<PhoneQueue>()})) {
        device.udid = udid;
        device.platform = DevicePlatform::iOS;
    }

    void take(const char* name, const QByteArray& content, const QDateTime& date = lunch) const {
        phone->addFile(QStringLiteral("/DCIM/") + QString::fromUtf8(name), content, date);
    }
    [[nodiscard]] FoundPhotos find() const {
        return findPhotos(*phone, device, ledgers(), {}, {});
    }
    [[nodiscard]] ImportPlan plan(const ImportWishes& wishes = {}) const {
        const FoundPhotos found = find();
        return planImport(found.newOnes(), *found.ledger, *to(), target(), wishes, {});
    }
    /// One import of all that is new.
    CopyOutcome fetch(const ImportWishes& wishes = {}) const {
        const FoundPhotos found = find();
        const auto here = to();
        ImportPlan wanted = planImport(found.newOnes(), *found.ledger, *here, target(), wishes, {});
        found.ledger->add(wanted.alreadyHere);
        if (wanted.items.empty())
            return {};
        return TreeCopy(importRequest(phone, here, std::move(wanted), found.ledger)).run({}, {});
    }
    [[nodiscard]] ImportRemoval removeAll() const {
        const FoundPhotos found = find();
        return removeImported(*phone, found.photos, *found.ledger, {}, {});
    }

    [[nodiscard]] std::shared_ptr<LocalFileSystem> to() const {
        return std::make_shared<LocalFileSystem>(target());
    }
    [[nodiscard]] QString target() const {
        return disk->makeFolder(QStringLiteral("pictures"));
    }
    [[nodiscard]] QString ledgers() const {
        return disk->path(QStringLiteral("ledgers"));
    }
    /// What lies in the target, by path and content, sorted.
    [[nodiscard]] QStringList here() const {
        QStringList found;
        QDirIterator walk(target(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            const QString path = walk.next().mid(target().size() + 1);
            found << path + u'=' +
                         QString::fromUtf8(disk->read(QStringLiteral("pictures/") + path));
        }
        found.sort();
        return found;
    }

    std::shared_ptr<MemoryFileSystem> phone;
    DeviceInfo device;
    std::shared_ptr<TemporaryFolder> disk = std::make_shared<TemporaryFolder>();
};

} // namespace tessary
