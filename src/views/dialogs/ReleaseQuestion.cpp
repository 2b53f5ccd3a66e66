#include "views/dialogs/ReleaseQuestion.h"

#include "base/text/Printable.h"
#include "views/common/PlainText.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace tessary {

namespace {

/// The context of this file's texts.
class ReleaseQuestion {
    Q_DECLARE_TR_FUNCTIONS(ReleaseQuestion)
};

} // namespace

void askToEndPrograms(QWidget& window, const QStringList& names, std::function<void()> agreed) {
    const QString name = QStringLiteral("releaseQuestion");
    if (window.findChild<QMessageBox*>(name) != nullptr)
        return;
    auto* question =
        new QMessageBox(QMessageBox::Warning, ReleaseQuestion::tr("Release the Phone"),
                        ReleaseQuestion::tr("To release the phone, these programs are ended: %1")
                            .arg(printable(names.join(QStringLiteral(", ")))),
                        QMessageBox::NoButton, &window);
    question->setObjectName(name);
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setInformativeText(ReleaseQuestion::tr(
        "What they are copying breaks off, and the folders of phones that they show close. Changes "
        "to files on a phone that are not saved yet may be lost."));
    const QAbstractButton* end =
        question->addButton(ReleaseQuestion::tr("End Programs"), QMessageBox::DestructiveRole);
    question->setDefaultButton(question->addButton(QMessageBox::Cancel));
    makePlain(*question);
    QObject::connect(question, &QMessageBox::finished, question,
                     [question, end, agreed = std::move(agreed)] {
                         if (question->clickedButton() == end)
                             agreed();
                     });
    question->open();
}

} // namespace tessary
