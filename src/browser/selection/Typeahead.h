#pragma once

#include <QString>

#include <chrono>
#include <functional>
#include <utility>

namespace tessary {

class FileRows;

/// Type-to-select: what was typed within a short time, and the row that it means.
class Typeahead {
public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    /// A pause longer than this starts a new search.
    static constexpr std::chrono::milliseconds patience{800};

    explicit Typeahead(Clock clock = std::chrono::steady_clock::now) : clock_(std::move(clock)) {}

    /// Takes a typed letter; returns the row to select, or -1 for none. The same letter again
    /// goes on to the next row with that initial, after `currentRow` (-1: none) and round.
    [[nodiscard]] int type(const QString& character, const FileRows& rows, int currentRow);

    /// The next letter starts a new search.
    void reset();

private:
    const Clock clock_;
    QString buffer_;
    std::chrono::steady_clock::time_point last_;
};

} // namespace tessary
