#include "ios/helper/IPhoneHelper.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/threads/CancellationError.h"
#include "ios/IPhoneError.h"
#include "ios/PairingQuestions.h"
#include "phone/PhoneError.h"

#include <system_error>

namespace tessary {

namespace {

using Outcome = ChildChannel::Outcome;

Error helperError(PhoneError meaning, const char* what) {
    return Error(meaning, {}, Error(IPhoneError::helper, {QString::fromLatin1(what)}));
}

/// What a helper tells that was started for this one question.
template <typename Result>
Result askOnce(const QString& udid, HelperOperation operation, const IPhoneHelper::Limits& limits,
               const std::stop_token& stop) {
    throwIfStopped(stop);
    Result result{};
    askingForTrust(udid, [&] {
        IPhoneHelper helper(udid, limits);
        result = helper.askFor<Result>(operation, {}, stop);
    });
    return result;
}

} // namespace

IPhoneHelper::IPhoneHelper(const QString& udid, Limits limits)
    : limits_(std::move(limits)), memory_(contentMemory) {
    if (limits_.program.isEmpty())
        throw helperError(PhoneError::notReachable, "not installed");
    try {
        const int inherited[] = {memory_.descriptor()};
        channel_ = std::make_unique<ChildChannel>(
            limits_.program, QStringList{QString::number(helperVersion), udid}, inherited);
    } catch (const std::system_error& error) {
        throw helperError(PhoneError::notReachable, error.what());
    }
}

/// The bytes of a result.
QByteArray IPhoneHelper::ask(HelperOperation operation, const QByteArray& arguments,
                             const std::stop_token& stop) {
    const auto code = static_cast<char>(operation);
    const ChildChannel::Answer answer = channel_->ask(
        QByteArray(1, code) + arguments, limits_.longestAnswer, limits_.patience, stop);
    if (answer.outcome != Outcome::answered)
        fail(answer.outcome);
    QDataStream stream(answer.message);
    bool isLost = false;
    bool wentWell = false;
    stream >> isLost >> wentWell;
    if (isLost)
        isLost_ = true;
    if (stream.status() == QDataStream::Ok && wentWell)
        return answer.message.sliced(stream.device()->pos());
    const auto error = readError(stream);
    requireSense(error.has_value());
    throw Error(*error);
}

void IPhoneHelper::requireSense(bool makesSense) {
    if (makesSense)
        return;
    end();
    throw helperError(PhoneError::nonsense, "an answer that makes no sense");
}

void IPhoneHelper::fail(Outcome outcome) {
    end();
    if (outcome == Outcome::stopped)
        throw CancellationError();
    DiagnosticsLogger::shared().afc.error("The helper of an iPhone was ended (%s)",
                                          {QString::number(static_cast<int>(outcome))});
    switch (outcome) {
    case Outcome::silent:
        throw helperError(PhoneError::noAnswer, "silent");
    case Outcome::flooded:
        throw helperError(PhoneError::nonsense, "too long an answer");
    default:
        throw helperError(PhoneError::nonsense, "ended");
    }
}

IPhoneFacts askIPhoneFacts(const QString& udid, const std::stop_token& stop,
                           const IPhoneHelper::Limits& limits) {
    return askOnce<IPhoneFacts>(udid, HelperOperation::facts, limits, stop);
}

std::vector<AppInfo> askIPhoneApps(const QString& udid, const std::stop_token& stop,
                                   const IPhoneHelper::Limits& limits) {
    return askOnce<std::vector<AppInfo>>(udid, HelperOperation::apps, limits, stop);
}

} // namespace tessary
