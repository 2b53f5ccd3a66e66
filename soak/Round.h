#pragma once

#include "Content.h"
#include "Program.h"
#include "SyncPairs.h"

#include <QHash>
#include <QUuid>

#include <functional>
#include <memory>
#include <stop_token>
#include <vector>

namespace tessary {

class Story;

/// Everything that rounds work on.
struct SoakBench {
    Program& program;
    std::vector<std::unique_ptr<SoakPhone>>& phones;
    SyncPairs& pairs;
    Content& content;
    Dice& dice;
    Story& story;
    QString folder; ///< of this computer's side
};

/// Some seconds of somebody's work with one or two phones, with what may go wrong meanwhile; then
/// peace, and a look at what has become of it all. A phone has the folders "Camera" (copied from),
/// "Inbox" (copied to) and "Edits" (renamed, moved and deleted in).
class Round {
public:
    /// `folder` gets the two folders of this computer that copies go from and to.
    explicit Round(SoakBench& bench);

    /// Throws Broken.
    void run();

private:
    /// One that was queued.
    struct Copy {
        SoakPhone* phone = nullptr;
        QStringList sources; ///< on this disk; none where what is there may have been left
    };

    void prepare(SoakPhone& phone);
    void act(SoakPhone& phone);
    void browse(SoakPhone& phone);
    void download(SoakPhone& phone);
    void upload(SoakPhone& phone);
    void edit(SoakPhone& phone);
    void look(SoakPhone& phone);
    void preview(const FileItem& item);
    void cancelSomething();
    void disturb(SoakPhone& phone);
    [[nodiscard]] bool show(SoakPhone& phone, const QString& path);
    [[nodiscard]] QStringList someIds(int most);
    /// What queues a copy once it is prepared, unless the round is over by then.
    [[nodiscard]] std::function<void(const PreparedCopy&)> queuing(SoakPhone& phone);
    void copy(SoakPhone& phone, const PreparedCopy& prepared);

    void settle();
    void makePeace();
    void checkJobs();
    void checkFolders();
    void checkListing(SoakPhone& phone, const QString& path);
    void tidy();

    SoakBench& bench_;
    Program& program_;
    Dice& dice_;
    Story& story_;
    const QString outbox_;
    const QString downloads_;
    std::vector<SoakPhone*> phones_; ///< of this round
    QHash<QUuid, Copy> copies_;
    QHash<SoakPhone*, Tree> edits_; ///< what lay in "Edits" before
    bool hasDeleted_ = false;
    std::shared_ptr<const bool> goesOn_ = std::make_shared<const bool>(true); ///< until it settled
    std::stop_source preview_{std::nostopstate};                              ///< the last one
    QString problem_; ///< that a signal brought, which must not throw
};

} // namespace tessary
