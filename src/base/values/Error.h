#pragma once

#include <QString>
#include <QVariantList>

#include <concepts>
#include <exception>
#include <memory>
#include <optional>

namespace tessary {

/// Whose codes an error has.
enum class ErrorLayer {
    local,
    phone,
    device,
    usb,
    mtp,
    adb,
    iphone,
    afc,
    process,
    network,
    http,
    sync
};

/// One case of one layer's enum. A layer makes its enum usable here by two functions beside it:
/// `constexpr ErrorLayer errorLayer(TheEnum)` and `const char* errorName(TheEnum)`, the case's name
/// for the log.
class ErrorCode {
public:
    template <typename Enum>
    requires requires(Enum value) {
        { errorLayer(value) } -> std::same_as<ErrorLayer>;
    }
    ErrorCode(Enum value) // NOLINT(google-explicit-constructor): a code is its enum's case
        : layer_(errorLayer(value)), value_(static_cast<int>(value)), name_(errorName(value)) {}

    [[nodiscard]] ErrorLayer layer() const {
        return layer_;
    }
    /// The case's number in its enum.
    [[nodiscard]] int value() const {
        return value_;
    }
    /// The case's name in English, for logs.
    [[nodiscard]] const char* name() const {
        return name_;
    }
    /// The case, when it is one of this enum.
    template <typename Enum>
    [[nodiscard]] std::optional<Enum> as() const {
        return layer_ == errorLayer(Enum{}) ? std::optional(static_cast<Enum>(value_))
                                            : std::nullopt;
    }

    bool operator==(const ErrorCode& other) const {
        return layer_ == other.layer_ && value_ == other.value_;
    }

private:
    ErrorLayer layer_;
    int value_;
    const char* name_;
};

/// The one error of everything above the codecs. A value: a code that is decided on, arguments for
/// the words that are made of it at the top, and what caused it. It holds no sentence.
class Error : public std::exception {
public:
    /// `arguments` are names, paths, sizes and a device's status, in the order that the code's
    /// enum states.
    Error(ErrorCode code, QVariantList arguments = {}, // NOLINT(google-explicit-constructor)
          std::shared_ptr<const Error> cause = nullptr);
    /// The same with a cause that is at hand.
    Error(ErrorCode code, QVariantList arguments, const Error& cause);

    [[nodiscard]] const ErrorCode& code() const {
        return code_;
    }
    [[nodiscard]] const QVariantList& arguments() const {
        return arguments_;
    }
    /// Null when there is none.
    [[nodiscard]] const Error* cause() const {
        return cause_.get();
    }
    /// Whether this error has the code. Its causes do not count.
    [[nodiscard]] bool is(const ErrorCode& code) const {
        return code_ == code;
    }
    /// The case of an enum that this error or the nearest of its causes has.
    template <typename Enum>
    [[nodiscard]] std::optional<Enum> find() const {
        for (const Error* error = this; error != nullptr; error = error->cause())
            if (const auto found = error->code_.as<Enum>())
                return found;
        return std::nullopt;
    }

    /// "notFound (/DCIM/a.jpg), caused by refused (8201)": for logs, in English.
    [[nodiscard]] const char* what() const noexcept override {
        return log_.constData();
    }
    [[nodiscard]] QString logText() const {
        return QString::fromUtf8(log_);
    }

    /// Compares codes and arguments.
    bool operator==(const Error& other) const {
        return code_ == other.code_ && arguments_ == other.arguments_;
    }

private:
    ErrorCode code_;
    QVariantList arguments_;
    std::shared_ptr<const Error> cause_;
    QByteArray log_;
};

} // namespace tessary
