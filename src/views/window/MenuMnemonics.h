#pragma once

#include <QObject>
#include <QStringList>

class QMenuBar;

namespace tessary {

/// Titles of menus with a letter of their own to each, which opens it with Alt: one of the title's
/// where it has Latin ones that are free, else one behind it in parentheses. Pure.
[[nodiscard]] QStringList withMnemonics(const QStringList& titles);

/// Gives the menus of a bar their letters, in every language, and leads to the first of them by
/// F10. Belongs to the bar.
class MenuMnemonics : public QObject {
public:
    explicit MenuMnemonics(QMenuBar& bar);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void apply();

    QMenuBar& bar_;
    bool isApplying_ = false;
};

} // namespace tessary
