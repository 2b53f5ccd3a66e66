#pragma once

#include <QFont>

#include <initializer_list>

class QAction;
class QLabel;
class QMenu;
class QProgressBar;
class QSize;
class QToolButton;
class QVBoxLayout;
class QWidget;

namespace tessary {

/// Lays out a widget as one column up to its edges, with `spacing` pixels between what it is made
/// of. The widget owns the layout.
[[nodiscard]] QVBoxLayout* makeColumn(QWidget& widget, int spacing = 0);

/// Gives a window the size that it wishes for, but less than the one that it stands in front of.
void resizeWithin(QWidget& window, const QSize& wished);

/// Adds commands to a menu; a null one stands for a line between groups.
void addCommands(QMenu& menu, std::initializer_list<QAction*> commands);

/// A label for what is said by the way, on as many lines as it takes.
[[nodiscard]] QLabel* makeNote();

/// The font for what stands above other text.
[[nodiscard]] QFont demiBold(QFont font);

/// Lays out a page as one column in its middle, which is no wider than texts are well read in, with
/// so many shares of the free room above and below it. Its ground is a list's. The page owns the
/// layout.
[[nodiscard]] QVBoxLayout* makeMiddle(QWidget& page, int above, int below);

/// Makes a bar of something whose end is not known.
void makeBusy(QProgressBar& bar);

/// Calls a button without words `name`, for the pointer and for those who do not see it.
void setName(QToolButton& button, const QString& name);
/// The font in another size.
[[nodiscard]] QFont scaled(QFont font, double factor);

} // namespace tessary
