#include "views/common/AppStyle.h"

#include <QApplication>

namespace tessary {

namespace {

constexpr QLatin1StringView plainStyle("fusion");

} // namespace

AppStyle::AppStyle() : QProxyStyle(QString(plainStyle)) {}

void AppStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const int ground = palette.color(group, QPalette::Base).lightness();
        const auto isLighter = [&](QPalette::ColorRole role) {
            return palette.color(group, role).lightness() > ground;
        };
        if (isLighter(QPalette::PlaceholderText) == isLighter(QPalette::Text))
            continue;
        QColor faded = palette.color(group, QPalette::Text);
        faded.setAlphaF(0.55F);
        palette.setColor(group, QPalette::PlaceholderText, faded);
    }
}

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
