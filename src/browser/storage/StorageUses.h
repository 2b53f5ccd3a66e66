#pragma once

#include "phone/PhoneFileSystem.h"
#include "phone/StorageUse.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>
#include <stop_token>

namespace tessary {

/// What fills the storages of the phones that were looked at. They are added up in the background,
/// in turns that nobody else wants, and only while somebody looks. Lives on the main thread.
class StorageUses : public QObject {
    Q_OBJECT

public:
    /// A look ends after this time; what is known by then stays.
    static constexpr std::chrono::minutes longestLook{2};

    explicit StorageUses(QObject* parent = nullptr);
    /// Stops what is under way.
    ~StorageUses() override;

    struct Storage {
        QString root;
        qint64 usedBytes = 0; ///< what was looked at whole is looked at again when it has changed

        bool operator==(const Storage&) const = default;
    };
    /// Adds these storages up, unless that is under way or known already.
    void look(std::shared_ptr<PhoneFileSystem> files, std::vector<Storage> storages);
    /// Nobody looks any more.
    void stop();
    [[nodiscard]] bool isLooking() const {
        return files_ != nullptr;
    }
    /// What is known of a storage so far.
    [[nodiscard]] std::optional<StorageUse> of(const PhoneFileSystem& files,
                                               const QString& root) const;

Q_SIGNALS:
    void changed();

private:
    struct Known {
        StorageUse use;
        qint64 usedBytes = 0;
    };
    void note(const Storage& storage, const StorageUse& use);

    std::shared_ptr<PhoneFileSystem> files_; ///< null while nothing is under way
    std::vector<Storage> storages_;          ///< that are added up
    std::stop_source stop_;
    int looks_ = 0; ///< that were begun
    QTimer deadline_;
    QHash<QString, Known> known_; ///< by the files' identity and the root
};

} // namespace tessary
