#include "views/window/MenuMnemonics.h"

#include "views/common/PlainText.h"

#include <QActionEvent>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QShortcut>

namespace tessary {

namespace {

/// For titles without a letter that could be taken.
constexpr QLatin1StringView spareLetters("FEVGHABCDIJKLMNOPQRSTUWXYZ");

bool isLatin(QChar letter) {
    return letter.unicode() < 0x80 && letter.isLetter();
}

} // namespace

QStringList withMnemonics(const QStringList& titles) {
    QString taken;
    QStringList marked;
    for (const QString& title : titles) {
        QString text = withoutMnemonic(title);
        qsizetype at = 0;
        while (at < text.size() && (!isLatin(text[at]) || taken.contains(text[at].toUpper())))
            ++at;
        if (at < text.size()) {
            taken.append(text[at].toUpper());
            text.insert(at, QLatin1Char('&'));
        } else {
            for (const char spare : spareLetters) {
                const QLatin1Char letter(spare);
                if (taken.contains(letter))
                    continue;
                taken.append(letter);
                text.append(QStringLiteral("(&%1)").arg(letter));
                break;
            }
        }
        marked.append(text);
    }
    return marked;
}

MenuMnemonics::MenuMnemonics(QMenuBar& bar) : QObject(&bar), bar_(bar) {
    bar.installEventFilter(this);
    auto* first = new QShortcut(Qt::Key_F10, &bar);
    connect(first, &QShortcut::activated, &bar, [&bar] {
        if (bar.actions().isEmpty())
            return;
        bar.setFocus(Qt::MenuBarFocusReason);
        bar.setActiveAction(bar.actions().constFirst());
    });
    apply();
}

bool MenuMnemonics::eventFilter(QObject* watched, QEvent* event) {
    if (!isApplying_ &&
        (event->type() == QEvent::ActionAdded || event->type() == QEvent::ActionChanged))
        apply();
    return QObject::eventFilter(watched, event);
}

void MenuMnemonics::apply() {
    const QScopedValueRollback applying(isApplying_, true);
    QStringList titles;
    for (const QAction* menu : bar_.actions())
        titles.append(menu->text());
    const QStringList marked = withMnemonics(titles);
    for (qsizetype i = 0; i < marked.size(); ++i)
        if (marked[i] != titles[i])
            bar_.actions().at(i)->setText(marked[i]);
}

} // namespace tessary
