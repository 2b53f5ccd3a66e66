#pragma once

#include <QCollator>
#include <QLocale>

namespace tessary {

/// The order of names for people: by a language's rules, whatever their case, numbers by their
/// value. By the rules of English for a locale without a language, which has none for letters.
[[nodiscard]] inline QCollator nameCollator(const QLocale& locale = QLocale()) {
    QCollator collator(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    return collator;
}

} // namespace tessary
