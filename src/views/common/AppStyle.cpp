#include "views/common/AppStyle.h"

#include <QApplication>

namespace tessary {

namespace {

constexpr QLatin1StringView plainStyle("fusion");

} // namespace

AppStyle::AppStyle() : QProxyStyle(QString(plainStyle)) {}

QSize AppStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                 const QWidget* widget) const {
    const QSize plain = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
    case CT_PushButton:
        return plain + QSize(20, 4);
    case CT_LineEdit:
        return plain + QSize(0, 4);
    case CT_ToolButton:
        return plain + QSize(2, 2);
    default:
        return plain;
    }
}

int AppStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                          const QWidget* widget) const {
    constexpr int besideTitles = 7;
    return metric == PM_HeaderMargin ? besideTitles
                                     : QProxyStyle::pixelMetric(metric, option, widget);
}

void setUpStyle() {
    if (QApplication::style()->name() == plainStyle)
        QApplication::setStyle(new AppStyle);
}

} // namespace tessary
