#include "views/common/PlainText.h"

#include <QLabel>
#include <QTextDocument>

namespace tessary {

void makePlain(QWidget& widget) {
    for (QLabel* label : widget.findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
}

QString plainToolTip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace tessary
