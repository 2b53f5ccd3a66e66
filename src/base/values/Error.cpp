#include "base/values/Error.h"

#include <QStringList>

namespace tessary {

namespace {

QByteArray logLine(const ErrorCode& code, const QVariantList& arguments, const Error* cause) {
    QByteArray line = code.name();
    if (!arguments.isEmpty()) {
        QStringList words;
        for (const QVariant& argument : arguments)
            words += argument.toString();
        line += " (" + words.join(QLatin1StringView(", ")).toUtf8() + ')';
    }
    if (cause != nullptr)
        line += QByteArray(", caused by ") + cause->what();
    return line;
}

} // namespace

Error::Error(ErrorCode code, QVariantList arguments, std::shared_ptr<const Error> cause)
    : code_(code),
      arguments_(std::move(arguments)),
      cause_(std::move(cause)),
      log_(logLine(code_, arguments_, cause_.get())) {}

Error::Error(ErrorCode code, QVariantList arguments, const Error& cause)
    : Error(code, std::move(arguments), std::make_shared<const Error>(cause)) {}

} // namespace tessary
