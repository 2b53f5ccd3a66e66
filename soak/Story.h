#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QString>

#include <deque>
#include <map>
#include <stdexcept>

namespace tessary {

/// An invariant does not hold.
class Broken : public std::runtime_error {
public:
    explicit Broken(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// What was done, counted and told. On the main thread.
class Story {
public:
    /// Every line also goes to `path`, at once: a sanitizer ends the program where it is. Empty: to
    /// no file.
    explicit Story(const QString& path);

    /// Counts an action of this kind and remembers it.
    void tell(const char* kind, const QString& details = {});
    void add(const char* kind, qint64 number);
    /// Keeps the largest.
    void raise(const char* kind, qint64 number);

    /// Each kind with its number, in alphabetical order.
    void printCounts() const;
    void printLast() const;

private:
    static constexpr std::size_t remembered = 60;

    QElapsedTimer clock_;
    QFile file_;
    std::map<QString, qint64> counts_;
    std::deque<QByteArray> last_;
};

} // namespace tessary
