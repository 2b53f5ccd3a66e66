#pragma once

#include <QFont>

class QVBoxLayout;
class QWidget;

namespace tessary {

/// Lays out a widget as one column up to its edges, with `spacing` pixels between what it is made
/// of. The widget owns the layout.
[[nodiscard]] QVBoxLayout* makeColumn(QWidget& widget, int spacing = 0);

/// The font for what stands above other text.
[[nodiscard]] QFont demiBold(QFont font);

} // namespace tessary
