#pragma once

#include <QLineEdit>
#include <QStringListModel>

#include <functional>

namespace tessary {

/// A line for a path. What it may become hangs below it while the user types; Tab takes the first
/// of that.
class PathEdit : public QLineEdit {
public:
    struct Callbacks {
        /// What a typed text may become.
        std::function<QStringList(const QString& typed)> complete;
        std::function<void(const QString& typed)> enter;
        /// The user has turned to something else.
        std::function<void()> leave;
        std::function<void()> change;
    };

    explicit PathEdit(Callbacks callbacks, QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    const Callbacks callbacks_;
    QStringListModel completions_;
};

} // namespace tessary
