#pragma once

#include "ios/AFCConnection.h"
#include "ios/helper/HelperMessages.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace tessary {

/// The helper's side: carries out, one after the other, what is asked about one iPhone. Everything
/// that a library parses of the phone's bytes is parsed behind this.
class HelperServer {
public:
    /// `content` is contentMemory bytes that the other side has, too. With another `version` than
    /// ours every answer is PhoneError::notReachable.
    HelperServer(QString udid, int version, std::shared_ptr<std::byte> content)
        : udid_(std::move(udid)), version_(version), content_(std::move(content)) {}

    /// Answers what comes on a descriptor until it ends.
    void serve(int descriptor);
    /// The answer to one request.
    [[nodiscard]] QByteArray answer(const QByteArray& request);

private:
    /// Writes the result of an operation; PhoneError::notSupported for one that makes no sense.
    void carryOut(HelperOperation operation, QDataStream& arguments, QDataStream& result);
    void moveContent(HelperOperation operation, QDataStream& arguments, QDataStream& result);
    [[nodiscard]] std::vector<AFCLookup> infosIn(const QString& folder, const QStringList& names);
    [[nodiscard]] AFCConnection& connection();
    [[nodiscard]] AFCFile& file();
    [[nodiscard]] Lockdown& lockdown();

    const QString udid_;
    const int version_; ///< that the other side speaks
    const std::shared_ptr<std::byte> content_;
    std::unique_ptr<Lockdown> lockdown_; ///< until a connection is opened with it
    std::unique_ptr<AFCConnection> connection_;
    std::unique_ptr<AFCFile> file_;
};

} // namespace tessary
