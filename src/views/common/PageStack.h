#pragma once

#include <QStackedWidget>

namespace tessary {

/// Pages of which one is shown, in the room that there is. Nobody asks what height they want for a
/// width: the wrapped texts of all pages, seen or not, would be laid out hundreds of times before a
/// window shows anything.
class PageStack : public QStackedWidget {
public:
    using QStackedWidget::QStackedWidget;

    [[nodiscard]] bool hasHeightForWidth() const override {
        return false;
    }
};

} // namespace tessary
