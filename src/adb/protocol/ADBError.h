#pragma once

#include <QString>

#include <exception>

namespace tessary {

/// The error of the ADB library. A value; `description` is the text for people and `what()` the
/// same in UTF-8.
class ADBError : public std::exception {
public:
    enum class Case {
        noKey,       ///< this computer's key could be neither found nor made
        notSigned,   ///< a token could not be signed
        noPublicKey, ///< the public half could not be taken from the key
    };

    ADBError(Case kind, QString description)
        : kind_(kind), description_(std::move(description)), utf8_(description_.toUtf8()) {}

    [[nodiscard]] Case kind() const {
        return kind_;
    }
    [[nodiscard]] const QString& description() const {
        return description_;
    }
    [[nodiscard]] const char* what() const noexcept override {
        return utf8_.constData();
    }

    bool operator==(const ADBError& other) const {
        return kind_ == other.kind_ && description_ == other.description_;
    }

private:
    Case kind_;
    QString description_;
    QByteArray utf8_;
};

} // namespace tessary
