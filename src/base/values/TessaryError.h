#pragma once

#include "base/values/AFCError.h"

#include <QString>

#include <exception>

namespace tessary {

/// The errors of the iOS layer and of the file service that the user sees. A value; `description`
/// is the text for people and `what()` the same in UTF-8.
class TessaryError : public std::exception {
public:
    enum class Case {
        deviceNotFound,
        lockdownFailed,
        serviceStartFailed,
        houseArrestFailed,
        afcError,
        instProxyFailed,
        fileIOError,
        transferCancelled,
    };

    [[nodiscard]] static TessaryError deviceNotFound(const QString& text);
    [[nodiscard]] static TessaryError lockdownFailed(const QString& text);
    [[nodiscard]] static TessaryError serviceStartFailed(const QString& text);
    [[nodiscard]] static TessaryError houseArrestFailed(const QString& text);
    [[nodiscard]] static TessaryError afcError(AFCError error);
    [[nodiscard]] static TessaryError instProxyFailed(const QString& text);
    [[nodiscard]] static TessaryError fileIOError(const QString& text);
    [[nodiscard]] static TessaryError transferCancelled();

    [[nodiscard]] Case kind() const {
        return kind_;
    }
    /// The text that the error was made with; empty for `afcError` and `transferCancelled`.
    [[nodiscard]] const QString& message() const {
        return message_;
    }
    /// The status of `afcError`; `success` for every other case.
    [[nodiscard]] AFCError afc() const {
        return afc_;
    }

    [[nodiscard]] QString description() const;
    [[nodiscard]] const char* what() const noexcept override {
        return utf8_.constData();
    }

    bool operator==(const TessaryError& other) const {
        return kind_ == other.kind_ && message_ == other.message_ && afc_ == other.afc_;
    }

private:
    TessaryError(Case kind, QString message, AFCError afc = AFCError::success);

    Case kind_;
    QString message_;
    AFCError afc_;
    QByteArray utf8_;
};

} // namespace tessary
