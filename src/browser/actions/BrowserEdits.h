#pragma once

#include "browser/actions/BrowserEdit.h"

#include <QObject>

#include <functional>
#include <memory>
#include <stop_token>
#include <vector>

namespace tessary {

/// How far a deletion or a move of several entries is.
struct EditProgress {
    int done = 0;
    int total = 0;
};

/// The changes that a browser makes, each in the background. Lives on the main thread.
class BrowserEdits : public QObject {
    Q_OBJECT

public:
    using Done = std::function<void(const BrowserEditReport&)>;

    explicit BrowserEdits(QObject* parent = nullptr) : QObject(parent) {}
    /// Stops what is under way.
    ~BrowserEdits() override;

    /// Does something to each entry; `whenDone` is called on the main thread, unless this is gone
    /// by then.
    void start(std::shared_ptr<PhoneFileSystem> files, std::vector<FileItem> items,
               BrowserProblem::What what, EditAction action, Done whenDone);
    [[nodiscard]] bool isRunning() const {
        return !running_.empty();
    }
    [[nodiscard]] const EditProgress& progress() const {
        return progress_;
    }
    /// What is done stays done.
    void cancel();

Q_SIGNALS:
    void changed(); ///< isRunning, progress

private:
    std::vector<std::stop_source> running_; ///< one for each that is under way
    EditProgress progress_;
};

} // namespace tessary
