#include "views/browser/PathEdit.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>

namespace tessary {

PathEdit::PathEdit(Callbacks callbacks, QWidget* parent)
    : QLineEdit(parent), callbacks_(std::move(callbacks)) {
    setObjectName(QStringLiteral("pathEdit"));
    auto* completer = new QCompleter(&completions_, this);
    // The folders are looked up by the text: the completer has nothing to leave out.
    completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    completer->setMaxVisibleItems(12);
    setCompleter(completer);
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
        completions_.setStringList(callbacks_.complete(text));
        callbacks_.change();
    });
}

bool PathEdit::event(QEvent* event) {
    // Before it moves the focus.
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Tab) {
        const QStringList found = callbacks_.complete(text());
        if (!found.isEmpty()) {
            setText(found.constFirst() + QLatin1Char('/'));
            completions_.setStringList(callbacks_.complete(text()));
            completer()->complete();
            event->accept();
            return true;
        }
    }
    return QLineEdit::event(event);
}

void PathEdit::keyPressEvent(QKeyEvent* event) {
    const bool isCompleting = completer()->popup()->isVisible();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        completer()->popup()->hide();
        callbacks_.enter(text());
    } else if (event->key() == Qt::Key_Escape && !isCompleting) {
        callbacks_.leave();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void PathEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // The list of completions and other windows take the focus for a while only.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        callbacks_.leave();
}

} // namespace tessary
