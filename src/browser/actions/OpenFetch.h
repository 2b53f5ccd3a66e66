#pragma once

#include "browser/actions/DragFiles.h"

#include <QObject>
#include <QStringList>

#include <stop_token>

namespace tessary {

/// Files on their way here because somebody wants to open them: as long as that takes, or until he
/// cancels. On the main thread; the work is done in the background.
class OpenFetch : public QObject {
    Q_OBJECT

public:
    /// Begins at once, with files and no folders; answers with ready() for what is here, with
    /// failed() for what is not, or with neither once cancelled.
    OpenFetch(DragRequest request, QObject* parent);
    ~OpenFetch() override;

    void cancel() {
        stop_.request_stop();
    }

Q_SIGNALS:
    /// Bytes of all; not for each piece.
    void progress(qint64 done, qint64 total);
    void ready(const QStringList& localPaths);
    void failed(const tessary::BrowserProblem& problem);

private:
    std::stop_source stop_;
};

} // namespace tessary
