#include "views/common/ProblemText.h"

#include "base/local/LocalError.h"
#include "base/text/Printable.h"
#include "phone/PhoneError.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <algorithm>

namespace tessary {

namespace {

using What = BrowserProblem::What;

/// The context of this file's texts.
class ProblemText {
    Q_DECLARE_TR_FUNCTIONS(ProblemText)
};

/// One item: its name and why.
QString failedOne(What what, const QString& name, const QString& why) {
    switch (what) {
    case What::create:
        return ProblemText::tr("“%1” could not be created: %2").arg(name, why);
    case What::rename:
        return ProblemText::tr("“%1” could not be renamed: %2").arg(name, why);
    case What::move:
        return ProblemText::tr("“%1” could not be moved: %2").arg(name, why);
    case What::fetch:
        return ProblemText::tr("“%1” could not be fetched: %2").arg(name, why);
    default:
        return ProblemText::tr("“%1” could not be deleted: %2").arg(name, why);
    }
}

/// Several of them, the first few by name.
QString failedSeveral(const BrowserProblem& problem) {
    QStringList named;
    for (const BrowserProblem::Failure& failure : problem.failures)
        //: the name of an item, and why it failed
        named << ProblemText::tr("%1 (%2)").arg(printable(failure.name), reasonText(failure.error));
    QString list = named.join(ProblemText::tr(", ", "between the items of a list"));
    const int more = problem.failed - static_cast<int>(named.size());
    if (more > 0)
        list = ProblemText::tr("%1 and %Ln more", nullptr, more).arg(list);
    const QString text =
        problem.what == What::move
            ? ProblemText::tr("%Ln of %1 items could not be moved: %2", nullptr, problem.failed)
            : ProblemText::tr("%Ln of %1 items could not be deleted: %2", nullptr, problem.failed);
    // One call: what a name holds is never taken for a place.
    return text.arg(QLocale().toString(problem.total), list);
}

/// Whether the name that an entry was to get is what is wrong.
bool isForName(const Error& error) {
    const ErrorCode codes[] = {PhoneError::nameNotAllowed, PhoneError::taken,
                               PhoneError::sameName,       LocalError::nameNotUsable,
                               LocalError::nameTooLong,    LocalError::taken};
    return !error.arguments().value(0).toString().isEmpty() &&
           std::ranges::any_of(codes, [&](const ErrorCode& code) { return error.is(code); });
}

ErrorText ofEdit(const BrowserProblem& problem) {
    const Error& first = problem.failures.front().error;
    ErrorText words = errorText(first);
    if (problem.total > 1) {
        words.what = failedSeveral(problem);
    } else if (problem.what == What::rename && isForName(first)) {
        words.what = failedOne(problem.what, printable(problem.name), words.what);
        words.advice.clear(); // it is about a name that an entry has already
    } else {
        words.what = failedOne(problem.what, printable(problem.name), reasonText(first));
    }
    return words;
}

} // namespace

ErrorText problemText(const BrowserProblem& problem) {
    switch (problem.what) {
    case What::notRead:
        return {ProblemText::tr("The folder was not read."),
                ProblemText::tr("Refresh it to try again."),
                {}};
    case What::notSearched:
        return {ProblemText::tr("The search was stopped. What it had found is shown."), {}, {}};
    case What::dragFolder:
        return {ProblemText::tr("Folders cannot be dragged to other programs here."),
                ProblemText::tr("Copy it to this computer first."),
                {}};
    case What::dragLong:
        return {ProblemText::tr("“%1” takes too long to be copied while it is dragged.")
                    .arg(printable(problem.name)),
                ProblemText::tr("Copy it to this computer first."),
                {}};
    case What::open:
        return {ProblemText::tr("“%1” could not be opened: no program for it was found, or it did "
                                "not start.")
                    .arg(printable(problem.name)),
                {},
                {}};
    case What::appsNotRead:
        return {ProblemText::tr("The apps were not read."),
                ProblemText::tr("Refresh the list to try again."),
                {}};
    case What::folderGone:
        return {ProblemText::tr("The folder “%1” is not on the phone any more.")
                    .arg(printable(problem.name)),
                ProblemText::tr("Go up to the folder that held it."),
                {}};
    case What::noSuchPath:
        return {ProblemText::tr("There is no “%1” on the phone.").arg(printable(problem.name)),
                ProblemText::tr("Check the spelling, or choose the folder below."),
                {}};
    case What::otherFolder:
        return {ProblemText::tr("Another folder is shown by now. Nothing was done."), {}, {}};
    case What::unplugged:
        return errorText(Error(PhoneError::unplugged));
    case What::load:
    case What::apps:
        return errorText(problem.failures.front().error);
    case What::create:
    case What::rename:
    case What::remove:
    case What::move:
    case What::fetch:
        return ofEdit(problem);
    }
    return {};
}

} // namespace tessary
