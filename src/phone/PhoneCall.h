#pragma once

#include <QString>

#include <stop_token>
#include <utility>

namespace tessary {

/// How soon a call wants its turn with a phone.
enum class Urgency {
    user,  ///< somebody waits for the answer: before every copy, and not without end
    copy,  ///< a step of a longer job: waits until it is its turn
    spare, ///< nobody waits for it: only while nobody else wants the phone and no job runs
};

/// What comes along with every call to a phone: what stops it, how soon it wants its turn, and on
/// whose behalf it is. A stop token alone makes a call that somebody waits for.
struct Call {
    Call() = default;
    Call(std::stop_token stopToken, // NOLINT(google-explicit-constructor)
         Urgency callUrgency = Urgency::user)
        : stop(std::move(stopToken)), urgency(callUrgency) {}

    std::stop_token stop;
    Urgency urgency = Urgency::user;
    QString
        partOwner; ///< whose the files are that it leaves behind when it breaks off: see PartName
};

} // namespace tessary
