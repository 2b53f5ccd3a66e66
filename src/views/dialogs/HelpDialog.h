#pragma once

#include <QDialog>

class QMenuBar;

namespace tessary {

/// Help: the first steps with a phone, and the keys of all commands in some menus.
class HelpDialog : public QDialog {
    Q_OBJECT

public:
    /// Lists the keys that the commands have now. Deletes itself when it is closed.
    explicit HelpDialog(const QMenuBar& menus, QWidget* parent = nullptr);
};

} // namespace tessary
