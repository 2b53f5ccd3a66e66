#pragma once

#include "sync/manager/SyncManager.h"

#include <QObject>

#include <functional>
#include <optional>

namespace tessary {

class DeviceManager;

/// What the sync menu, its sheet and its dialogs work on: runs and cancels pairs, holds the
/// question that waits for an answer and the preview that is shown before a pair's first run. Lives
/// on the main thread.
class SyncViewModel : public QObject {
    Q_OBJECT

public:
    /// What is shown before the first run of a pair.
    struct Preview {
        SyncPair pair;
        std::optional<SyncPreview> plan; ///< none while it is made, and after an error
        QString error;

        [[nodiscard]] bool isLoading() const {
            return !plan && error.isEmpty();
        }
    };

    /// Both must outlive the view model.
    SyncViewModel(SyncManager& manager, DeviceManager& deviceManager, QObject* parent = nullptr);
    /// Answers a question that waits with no.
    ~SyncViewModel() override;

    [[nodiscard]] SyncManager& manager() {
        return manager_;
    }

    /// A new pair of the folder that is being browsed; no value while none is.
    [[nodiscard]] std::optional<SyncPair> draft(const QString& localFolder) const;
    /// One plain sentence that says what syncing a pair will do.
    [[nodiscard]] static QString sentence(const SyncPair& pair);

    /// Runs a pair; one that was never synced is previewed first and runs with confirmPreview().
    void run(const QUuid& id);
    /// Runs every pair that was synced before.
    void runAll();
    void cancel(const QUuid& id);

    /// Shows what a run would do.
    void requestPreview(const SyncPair& pair);
    [[nodiscard]] const std::optional<Preview>& preview() const {
        return preview_;
    }
    /// Closes the preview and runs its pair, which is added to the list when it is not in it.
    void confirmPreview();
    void closePreview();

    /// The question that a run waits with.
    [[nodiscard]] const std::optional<SyncQuestion>& question() const {
        return question_;
    }
    /// "Delete" (or "create again") or "Keep".
    void answer(bool yes);

Q_SIGNALS:
    void previewChanged();
    void questionChanged();

private:
    [[nodiscard]] SyncManager::OnDeleteConfirm confirm();
    void dropQuestion();

    SyncManager& manager_;
    DeviceManager& deviceManager_;
    std::optional<Preview> preview_;
    std::stop_source stopPreview_;
    std::optional<SyncQuestion> question_;
    std::function<void(bool)> completion_;
    QUuid askedBy_; ///< the pair whose run asked
};

} // namespace tessary
