#pragma once

#include "phone/records/AppInfo.h"
#include "phone/records/DeviceInfo.h"
#include "sync/manager/SyncManager.h"

#include <QObject>
#include <QSet>

#include <functional>
#include <optional>

namespace tessary {

class DeviceManager;

/// What the sync menu, its sheet and its dialogs work on: runs and cancels pairs, holds the
/// question that waits for an answer and the preview that is shown before a run. Lives on the main
/// thread.
class SyncViewModel : public QObject {
    Q_OBJECT

public:
    /// What a run would do, before it is done.
    struct Preview {
        SyncPair pair;
        std::optional<SyncPreview> plan; ///< none while it is made, and after an error
        std::optional<Error> error;

        [[nodiscard]] bool isLoading() const {
            return !plan && !error;
        }
    };

    /// The folder that is being browsed, of which a pair may be made.
    struct Browsed {
        std::optional<DeviceInfo> device;
        std::optional<AppInfo> app; ///< whose documents it is in
        QString remotePath;
    };

    /// Both must outlive the view model.
    SyncViewModel(SyncManager& manager, DeviceManager& deviceManager, QObject* parent = nullptr);
    /// Answers a question that waits with SyncAnswer::stop().
    ~SyncViewModel() override;

    [[nodiscard]] SyncManager& manager() {
        return manager_;
    }

    void setBrowsed(Browsed browsed) {
        browsed_ = std::move(browsed);
    }
    /// A new pair of the folder that is being browsed, with a folder of its own below
    /// `documents`; no value while none is.
    [[nodiscard]] std::optional<SyncPair> draft(const QString& documents) const;

    /// Runs a pair; one that was never synced is previewed first and runs with confirmPreview().
    void run(const QUuid& id);
    /// Runs every pair that was synced before.
    void runAll();

    /// Shows what a run would do.
    void requestPreview(const SyncPair& pair);
    [[nodiscard]] const std::optional<Preview>& preview() const {
        return preview_;
    }
    /// Closes the preview and runs its pair, which is added to the list when it is not in it.
    void confirmPreview(const SyncDecisions& decisions = {});
    void closePreview();

    /// Shows the sheet of a pair, or its reports.
    void requestEdit(const QUuid& id) {
        Q_EMIT editRequested(id);
    }
    void requestReports(const QUuid& id) {
        if (troubledPair_ == id)
            dismissTrouble();
        Q_EMIT reportsRequested(id);
    }

    /// The question that a run waits with.
    [[nodiscard]] const std::optional<SyncQuestion>& question() const {
        return question_;
    }
    void answer(const SyncAnswer& answer);

    /// The pair whose last run failed or left files as they are, until the user has seen it or a
    /// later run of it has gone well; no value while there is none.
    [[nodiscard]] const std::optional<QUuid>& troubledPair() const {
        return troubledPair_;
    }
    void dismissTrouble();

    /// Whether the run of a pair that just ended, or runs, began by itself.
    [[nodiscard]] bool beganByItself(const QUuid& id) const {
        return byItself_.contains(id);
    }

Q_SIGNALS:
    void previewChanged();
    void questionChanged();
    void editRequested(const QUuid& id);
    void reportsRequested(const QUuid& id);
    void troubleChanged();

private:
    [[nodiscard]] SyncManager::OnQuestion ask();
    void dropQuestion();
    void runPairsOfNewDevices();
    void noteTrouble(const QUuid& id);

    SyncManager& manager_;
    DeviceManager& deviceManager_;
    Browsed browsed_;
    std::optional<Preview> preview_;
    std::stop_source stopPreview_;
    std::optional<SyncQuestion> question_;
    std::function<void(SyncAnswer)> completion_;
    QUuid askedBy_;       ///< the pair whose run asked
    QSet<QString> ready_; ///< devices whose files can be read, by udid
    std::optional<QUuid> troubledPair_;
    QSet<QUuid> byItself_; ///< pairs whose runs nobody asked for
};

} // namespace tessary
