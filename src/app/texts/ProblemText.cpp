#include "app/texts/ProblemText.h"

#include "base/text/Printable.h"
#include "phone/PhoneError.h"

#include <QCoreApplication>
#include <QStringList>

namespace tessary {

namespace {

using What = BrowserProblem::What;

/// The words of this file.
struct Words {
    Q_DECLARE_TR_FUNCTIONS(ProblemText)
};

/// One item: its name and why.
QString failedOne(What what, const QString& name, const QString& why) {
    switch (what) {
    case What::create:
        return Words::tr("Failed to create %1: %2").arg(name, why);
    case What::rename:
        return Words::tr("Failed to rename %1: %2").arg(name, why);
    case What::move:
        return Words::tr("Failed to move %1: %2").arg(name, why);
    case What::drag:
        return Words::tr("Failed to drag out %1: %2").arg(name, why);
    default:
        return Words::tr("Failed to delete %1: %2").arg(name, why);
    }
}

/// Several of them, the first few by name.
QString failedSeveral(const BrowserProblem& problem) {
    QStringList named;
    for (const BrowserProblem::Failure& failure : problem.failures)
        named << QStringLiteral("%1 (%2)").arg(printable(failure.name),
                                               errorText(failure.error).what);
    QString list = named.join(QLatin1StringView(", "));
    const int more = problem.failed - static_cast<int>(named.size());
    if (more > 0)
        list = Words::tr("%1 and %2 more").arg(list, QString::number(more));
    const QString text = problem.what == What::move
                             ? Words::tr("Failed to move %1 of %2 items: %3")
                             : Words::tr("Failed to delete %1 of %2 items: %3");
    // One call: what a name holds is never taken for a place.
    return text.arg(QString::number(problem.failed), QString::number(problem.total), list);
}

ErrorText ofEdit(const BrowserProblem& problem) {
    ErrorText words = errorText(problem.failures.front().error);
    words.what = problem.total == 1 ? failedOne(problem.what, printable(problem.name), words.what)
                                    : failedSeveral(problem);
    return words;
}

} // namespace

ErrorText problemText(const BrowserProblem& problem) {
    switch (problem.what) {
    case What::notRead:
        return {Words::tr("The folder was not read."), Words::tr("Refresh it to try again."), {}};
    case What::appsNotRead:
        return {
            Words::tr("The apps were not read."), Words::tr("Refresh the list to try again."), {}};
    case What::folderGone:
        return {Words::tr("The folder \"%1\" is not on the phone any more.")
                    .arg(printable(problem.name)),
                Words::tr("Go up to the folder that held it."),
                {}};
    case What::noSuchPath:
        return {Words::tr("There is no \"%1\" on the phone.").arg(printable(problem.name)),
                Words::tr("Check the spelling, or choose the folder below."),
                {}};
    case What::otherFolder:
        return {Words::tr("Another folder is shown by now. Nothing was done."), {}, {}};
    case What::unplugged:
        return errorText(Error(PhoneError::unplugged));
    case What::load:
    case What::apps:
        return errorText(problem.failures.front().error);
    case What::create:
    case What::rename:
    case What::remove:
    case What::move:
    case What::drag:
        return ofEdit(problem);
    }
    return {};
}

} // namespace tessary
