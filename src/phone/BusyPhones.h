#pragma once

#include <QHash>
#include <QString>

#include <mutex>

namespace tessary {

/// The phones that something works on right now, so that whoever only wants to know their figures
/// keeps away meanwhile. Thread-safe.
class BusyPhones {
public:
    /// A phone is busy for as long as there is a mark on it.
    class Mark {
    public:
        Mark(BusyPhones& phones, const QString& udid);
        ~Mark();
        Mark(const Mark&) = delete;
        Mark& operator=(const Mark&) = delete;

    private:
        BusyPhones& phones_;
        const QString udid_;
    };

    /// The application's. Never released.
    [[nodiscard]] static BusyPhones& shared();

    [[nodiscard]] bool isBusy(const QString& udid) const;

private:
    mutable std::mutex mutex_;
    QHash<QString, int> marks_; ///< by udid; guarded by mutex_
};

} // namespace tessary
