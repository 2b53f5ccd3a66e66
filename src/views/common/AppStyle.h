#pragma once

#include <QProxyStyle>

namespace tessary {

/// The plain style of Qt with the room around buttons that desktops' own styles have. Used where no
/// desktop brings a style of its own.
class AppStyle : public QProxyStyle {
public:
    AppStyle();

    using QProxyStyle::polish;
    /// Hints stay readable where a desktop's dark colours have none for them.
    void polish(QPalette& palette) override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                         const QSize& size, const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
};

/// Puts AppStyle in the place of the plain style. Once at start.
void setUpStyle();

} // namespace tessary
