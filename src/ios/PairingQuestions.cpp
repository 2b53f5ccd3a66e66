#include "ios/PairingQuestions.h"

#include "ios/IPhoneError.h"
#include "ios/Multiplexer.h"

#include <libimobiledevice/lockdown.h>

#include <algorithm>

namespace tessary {

namespace {

/// A phone that shows up under ever new names must not fill the memory.
constexpr qsizetype mostPhones = 256;

} // namespace

PairingQuestions& PairingQuestions::shared() {
    static PairingQuestions questions;
    return questions;
}

std::optional<std::int32_t> PairingQuestions::refusalOf(const QString& udid,
                                                        std::uint32_t attachment,
                                                        Clock::time_point now) const {
    const std::scoped_lock lock(mutex_);
    const auto found = questions_.constFind(udid);
    if (found == questions_.cend() || found->attachment != attachment || now >= found->next)
        return std::nullopt;
    return found->status;
}

void PairingQuestions::refused(const QString& udid, std::uint32_t attachment, std::int32_t status,
                               Clock::time_point now) {
    const std::scoped_lock lock(mutex_);
    if (questions_.size() >= mostPhones)
        questions_.clear();
    Question& question = questions_[udid];
    const bool isFirst = question.attachment != attachment || question.pause.count() == 0;
    const auto pause = isFirst ? firstPause : std::min(question.pause * 2, longestPause);
    switch (status) {
    case LOCKDOWN_E_USER_DENIED_PAIRING: // asked again only when the cable was pulled
        question = {attachment, status, pause, Clock::time_point::max()};
        break;
    case LOCKDOWN_E_PASSWORD_PROTECTED: // no question was shown to the user
        question = {attachment, status, {}, now + lockedPause};
        break;
    default:
        question = {attachment, status, pause, now + pause};
    }
}

void PairingQuestions::forget(const QString& udid) {
    const std::scoped_lock lock(mutex_);
    questions_.remove(udid);
}

void askingForTrust(const QString& udid, const std::function<void()>& work) {
    PairingQuestions& questions = PairingQuestions::shared();
    if (isPaired(udid)) {
        questions.forget(udid);
        work();
        return;
    }
    const std::uint32_t attachment = attachmentOf(udid).value_or(0);
    if (const auto before = questions.refusalOf(udid, attachment))
        throw lockdownErrorOf(*before, {IPhoneError::handshake, {*before}});
    try {
        work();
        questions.forget(udid);
    } catch (const Error& error) {
        const Error* cause = error.cause();
        const bool isRefusal = cause != nullptr && cause->is(IPhoneError::handshake);
        const int status = isRefusal ? cause->arguments().value(0).toInt() : 0;
        if (isFinalRefusal(status))
            questions.refused(udid, attachment, status);
        throw;
    }
}

} // namespace tessary
