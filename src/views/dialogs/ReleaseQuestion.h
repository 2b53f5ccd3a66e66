#pragma once

#include <QStringList>

#include <functional>

class QWidget;

namespace tessary {

/// Asks in `window` whether these programs may be ended for a phone's sake, and says what they may
/// lose. `agreed` is called once the user has agreed to it, and never when the window goes first.
/// Returns at once; nothing new is asked while the question is open.
void askToEndPrograms(QWidget& window, const QStringList& names, std::function<void()> agreed);

} // namespace tessary
