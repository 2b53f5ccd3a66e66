#include "views/common/PlainText.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextDocument>

namespace tessary {

void makePlain(QWidget& widget) {
    for (QLabel* label : widget.findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
}

bool isAgreed(QMessageBox& question, const QString& agree) {
    const QAbstractButton* agrees = question.addButton(agree, QMessageBox::DestructiveRole);
    question.setDefaultButton(question.addButton(QMessageBox::Cancel));
    makePlain(question);
    question.exec();
    return question.clickedButton() == agrees;
}

QString withoutMnemonic(QString title) {
    static const QRegularExpression behind(QStringLiteral("\\(&\\w\\)$"));
    return title.remove(behind).remove(QLatin1Char('&'));
}

QString plainToolTip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace tessary
