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

namespace tessary {

namespace {

/// The context of this file's texts.
class ClashQuestion {
    Q_DECLARE_TR_FUNCTIONS(ClashQuestion)
};

QString sideText(const CopySide& side, bool isFolder) {
    const QString date = side.date
                             ? QLocale().toString(side.date->toLocalTime(), QLocale::ShortFormat)
                             : QStringLiteral("--");
    return isFolder ? date : QStringLiteral("%1, %2").arg(formatBytes(side.size), date);
}

} // namespace

std::optional<CopyChoices> askAboutClashes(QWidget* parent, const CopyPlan& survey) {
    CopyChoices choices;
    std::optional<NameClash> forAll;
    auto others =
        std::count_if(survey.candidates.begin(), survey.candidates.end(),
                      [](const auto& candidate) { return candidate.existing.has_value(); });
    for (const CopyCandidate& clash : survey.candidates) {
        if (!clash.existing)
            continue;
        --others;
        if (forAll) {
            choices.insert(clash.key, *forAll);
            continue;
        }
        QMessageBox question(QMessageBox::Question, ClashQuestion::tr("Already There"),
                             ClashQuestion::tr("“%1” is already there.").arg(printable(clash.name)),
                             QMessageBox::NoButton, parent);
        question.setObjectName(QStringLiteral("clashQuestion"));
        QString detail =
            ClashQuestion::tr("New: %1").arg(sideText(clash.coming, clash.isFolder)) +
            QLatin1Char('\n') +
            ClashQuestion::tr("There: %1").arg(sideText(*clash.existing, clash.isFolder));
        if (clash.isFolder)
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
        NameClash choice = NameClash::skip;
        if (clicked == replace)
            choice = NameClash::replace;
        else if (clicked == keepBoth)
            choice = NameClash::keepBoth;
        else if (clicked != skip)
            return std::nullopt;
        choices.insert(clash.key, choice);
        if (question.checkBox() != nullptr && question.checkBox()->isChecked())
            forAll = choice;
    }
    return choices;
}

bool askAboutSpace(QWidget* parent, const CopyPlan& survey, const CopyChoices& choices) {
    const qint64 needed = survey.neededBytes(choices);
    if (!survey.freeBytes || needed <= *survey.freeBytes)
        return true;
    QMessageBox question(QMessageBox::Warning, ClashQuestion::tr("Not Enough Space"),
                         ClashQuestion::tr("There is not enough space for this copy."),
                         QMessageBox::NoButton, parent);
    question.setObjectName(QStringLiteral("spaceQuestion"));
    const QString words = survey.isPartial
                              ? ClashQuestion::tr("It needs at least %1, and %2 are free in “%3”.")
                              : ClashQuestion::tr("It needs %1, and %2 are free in “%3”.");
    question.setInformativeText(words.arg(formatBytes(needed), formatBytes(*survey.freeBytes),
                                          printable(survey.targetName)));
    QAbstractButton* goOn =
        question.addButton(ClashQuestion::tr("Copy Anyway"), QMessageBox::DestructiveRole);
    question.setDefaultButton(question.addButton(QMessageBox::Cancel));
    makePlain(question);
    question.exec();
    return question.clickedButton() == goOn;
}

} // namespace tessary
