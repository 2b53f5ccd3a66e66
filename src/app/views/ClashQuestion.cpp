#include "app/views/ClashQuestion.h"

#include "app/Translations.h"
#include "app/views/PlainText.h"
#include "core/ByteFormat.h"
#include "core/Printable.h"

#include <QCheckBox>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

namespace tessary {

namespace {

QString sideText(const ClashSide& side, bool isFolder) {
    const QString date = side.date
                             ? QLocale().toString(side.date->toLocalTime(), QLocale::ShortFormat)
                             : QStringLiteral("--");
    return isFolder ? date : QStringLiteral("%1, %2").arg(formatBytes(side.size), date);
}

} // namespace

std::optional<QHash<QString, ClashChoice>>
askAboutClashes(QWidget* parent, const std::vector<Clash>& clashes, bool canKeepBoth) {
    QHash<QString, ClashChoice> choices;
    std::optional<ClashChoice> forAll;
    for (std::size_t i = 0; i < clashes.size(); ++i) {
        const Clash& clash = clashes[i];
        if (forAll) {
            choices.insert(clash.key, *forAll);
            continue;
        }
        QMessageBox question(QMessageBox::Question, tessary::tr("Already There"),
                             tessary::tr("“%1” is already there.").arg(printable(clash.name)),
                             QMessageBox::NoButton, parent);
        question.setObjectName(QStringLiteral("clashQuestion"));
        QString detail = tessary::tr("New: %1").arg(sideText(clash.coming, clash.isFolder)) +
                         QLatin1Char('\n') +
                         tessary::tr("There: %1").arg(sideText(clash.existing, clash.isFolder));
        if (clash.isFolder)
            detail +=
                QStringLiteral("\n\n") +
                tessary::tr("Replacing merges the folders; files of the same name in them are "
                            "replaced.");
        question.setInformativeText(detail);
        QAbstractButton* replace =
            question.addButton(tessary::tr("Replace"), QMessageBox::DestructiveRole);
        QAbstractButton* keepBoth =
            canKeepBoth ? question.addButton(tessary::tr("Keep Both"), QMessageBox::AcceptRole)
                        : nullptr;
        QPushButton* skip = question.addButton(tessary::tr("Skip"), QMessageBox::ActionRole);
        question.addButton(QMessageBox::Cancel);
        question.setDefaultButton(skip);
        const std::size_t others = clashes.size() - i - 1;
        auto* all = new QCheckBox(tessary::tr("Do the same for the other %1").arg(others));
        if (others > 0)
            question.setCheckBox(all);
        else
            delete all;
        makePlain(question);
        question.exec();
        const QAbstractButton* clicked = question.clickedButton();
        ClashChoice choice = ClashChoice::skip;
        if (clicked == replace)
            choice = ClashChoice::replace;
        else if (keepBoth != nullptr && clicked == keepBoth)
            choice = ClashChoice::keepBoth;
        else if (clicked != skip)
            return std::nullopt;
        choices.insert(clash.key, choice);
        if (question.checkBox() != nullptr && question.checkBox()->isChecked())
            forAll = choice;
    }
    return choices;
}

} // namespace tessary
