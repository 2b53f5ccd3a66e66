#pragma once

#include <QString>

#include <stdexcept>

namespace tessary {

/// Why the command line cannot do what it was asked, where nothing below it has failed: one line
/// for the user.
class CliFailure : public std::runtime_error {
public:
    explicit CliFailure(const QString& text) : std::runtime_error(text.toStdString()) {}
};

} // namespace tessary
