#pragma once

#include <QDateTime>
#include <QString>

#include <ostream>

// How GoogleTest shows Qt's values in a failure; found by argument-dependent look-up.

inline void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QDateTime& date, std::ostream* stream) {
    *stream << date.toString(Qt::ISODateWithMs).toStdString();
}
