#pragma once

#include <QString>

class QMessageBox;
class QWidget;

namespace tessary {

/// Shows the texts of all labels in a widget as they are. Left alone, a label takes a phone's file
/// name that looks like HTML for it, and loads whatever picture that names. Of a message box: after
/// its last text was set, before it is shown.
void makePlain(QWidget& widget);

/// Asks a question to which the answers are `agree` and to call it off; true when the user agrees.
/// Runs an event loop of its own.
[[nodiscard]] bool isAgreed(QMessageBox& question, const QString& agree);

/// The title of a menu or command without the mark of its letter; in some languages that stands
/// behind the text, in parentheses.
[[nodiscard]] QString withoutMnemonic(QString title);

/// A text for a tool tip, which shows it as it is.
[[nodiscard]] QString plainToolTip(const QString& text);

} // namespace tessary
