#pragma once

#include "Content.h"
#include "Program.h"

#include <memory>
#include <vector>

namespace tessary {

class Story;

/// Pairs of each phone, in the three ways of syncing: edited on both sides, run, cancelled, and
/// compared after a run that says it went well.
class SyncPairs {
public:
    SyncPairs(Program& program, Content& content, Dice& dice, Story& story);

    /// The three pairs of a phone, with local folders below `folder`.
    void add(SoakPhone& phone, const QString& folder);
    /// Edits both sides of one of the phone's pairs and runs it, unless it runs already.
    void start(SoakPhone& phone);
    /// Cancels what runs.
    void cancel();
    /// In peace: runs what was started since the last time, to the end. Throws Broken for this and
    /// for any run before that went well and left the two sides differing.
    void finish();

private:
    struct Pair {
        QUuid id;
        SoakPhone& phone;
        QString local;
        QString remote; ///< on this disk
        SyncMode mode;
        Tree moved{};        ///< what the pair that moves has to have here, in the end
        bool isOpen = false; ///< edited since it was compared
    };

    void edit(Pair& pair);
    void editFolder(const QString& folder, bool mayDelete);
    void run(const Pair& pair);
    void runInPeace(const Pair& pair);
    void compare(const QUuid& id);
    [[nodiscard]] static QString difference(const Pair& pair);

    Program& program_;
    Content& content_;
    Dice& dice_;
    Story& story_;
    std::vector<std::unique_ptr<Pair>> pairs_;
    QString problem_; ///< that a signal brought, which must not throw
};

} // namespace tessary
