#include "views/dialogs/ClashQuestion.h"

#include "base/text/ByteFormat.h"
#include "base/text/Printable.h"
#include "views/common/PlainText.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <iterator>
#include <vector>

namespace tessary {

namespace {

/// The context of this file's texts.
class ClashQuestion {
    Q_DECLARE_TR_FUNCTIONS(ClashQuestion)
};

QString sideText(const FileItem& side) {
    const QString date = side.modifiedDate ? QLocale().toString(side.modifiedDate->toLocalTime(),
                                                                QLocale::ShortFormat)
                                           : QStringLiteral("--");
    return side.isDirectory ? date : QStringLiteral("%1, %2").arg(formatBytes(side.size), date);
}

/// Everything whose name is taken.
std::vector<CheckedItem> clashesOf(const PreparedCopy& copy) {
    std::vector<CheckedItem> clashes;
    for (const PreparedCopy::Part& part : copy.parts)
        std::copy_if(part.check.items.begin(), part.check.items.end(), std::back_inserter(clashes),
                     [](const CheckedItem& item) { return item.existing.has_value(); });
    return clashes;
}

} // namespace

std::optional<CopyAnswers> askAboutClashes(QWidget* parent, const PreparedCopy& copy) {
    CopyAnswers answers;
    std::optional<ClashAnswer> forAll;
    const std::vector<CheckedItem> clashes = clashesOf(copy);
    auto others = clashes.size();
    for (const CheckedItem& clash : clashes) {
        --others;
        const FileItem& coming = clash.item.item;
        if (forAll) {
            answers.insert(coming.id(), *forAll);
            continue;
        }
        QMessageBox question(
            QMessageBox::Question, ClashQuestion::tr("Already There"),
            ClashQuestion::tr("“%1” is already there.").arg(printable(clash.item.name)),
            QMessageBox::NoButton, parent);
        question.setObjectName(QStringLiteral("clashQuestion"));
        QString detail = ClashQuestion::tr("New: %1").arg(sideText(coming)) + QLatin1Char('\n') +
                         ClashQuestion::tr("There: %1").arg(sideText(*clash.existing));
        if (coming.isDirectory)
            detail +=
                QStringLiteral("\n\n") +
                ClashQuestion::tr(
                    "Replacing merges the folders; files of the same name in them are replaced.");
        question.setInformativeText(detail);
        QAbstractButton* replace =
            question.addButton(ClashQuestion::tr("Replace"), QMessageBox::DestructiveRole);
        QAbstractButton* keepBoth =
            question.addButton(ClashQuestion::tr("Keep Both"), QMessageBox::AcceptRole);
        QPushButton* skip = question.addButton(ClashQuestion::tr("Skip"), QMessageBox::ActionRole);
        question.addButton(QMessageBox::Cancel);
        question.setDefaultButton(skip);
        if (others > 0)
            question.setCheckBox(new QCheckBox(ClashQuestion::tr(
                "Do the same for the other %Ln", nullptr, static_cast<int>(others))));
        makePlain(question);
        question.exec();
        const QAbstractButton* clicked = question.clickedButton();
        ClashAnswer choice = ClashAnswer::skip;
        if (clicked == replace)
            choice = ClashAnswer::replace;
        else if (clicked == keepBoth)
            choice = ClashAnswer::keepBoth;
        else if (clicked != skip)
            return std::nullopt;
        answers.insert(coming.id(), choice);
        if (question.checkBox() != nullptr && question.checkBox()->isChecked())
            forAll = choice;
    }
    return answers;
}

bool askAboutSpace(QWidget* parent, const PreparedCopy& copy, const CopyAnswers& answers) {
    const qint64 needed = copy.neededBytes(answers);
    const auto free = copy.freeBytes();
    if (!free || needed <= *free)
        return true;
    QMessageBox question(QMessageBox::Warning, ClashQuestion::tr("Not Enough Space"),
                         ClashQuestion::tr("There is not enough space for this copy."),
                         QMessageBox::NoButton, parent);
    question.setObjectName(QStringLiteral("spaceQuestion"));
    const QString words = copy.isPartial()
                              ? ClashQuestion::tr("It needs at least %1, and %2 are free in “%3”.")
                              : ClashQuestion::tr("It needs %1, and %2 are free in “%3”.");
    question.setInformativeText(
        words.arg(formatBytes(needed), formatBytes(*free), printable(copy.targetName)));
    return isAgreed(question, ClashQuestion::tr("Copy Anyway"));
}

} // namespace tessary
