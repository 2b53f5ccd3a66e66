#include "base/values/AFCError.h"

#include <array>

namespace tessary {

namespace {

struct Row {
    AFCError error;
    QLatin1StringView name;
};

constexpr std::array table{
    Row{AFCError::success, QLatin1StringView("success")},
    Row{AFCError::unknownError, QLatin1StringView("unknownError")},
    Row{AFCError::opHeaderInvalid, QLatin1StringView("opHeaderInvalid")},
    Row{AFCError::noResources, QLatin1StringView("noResources")},
    Row{AFCError::readError, QLatin1StringView("readError")},
    Row{AFCError::writeError, QLatin1StringView("writeError")},
    Row{AFCError::unknownPacketType, QLatin1StringView("unknownPacketType")},
    Row{AFCError::invalidArg, QLatin1StringView("invalidArg")},
    Row{AFCError::objectNotFound, QLatin1StringView("objectNotFound")},
    Row{AFCError::objectIsDir, QLatin1StringView("objectIsDir")},
    Row{AFCError::permDenied, QLatin1StringView("permDenied")},
    Row{AFCError::serviceNotConnected, QLatin1StringView("serviceNotConnected")},
    Row{AFCError::opTimeout, QLatin1StringView("opTimeout")},
    Row{AFCError::tooMuchData, QLatin1StringView("tooMuchData")},
    Row{AFCError::endOfData, QLatin1StringView("endOfData")},
    Row{AFCError::opNotSupported, QLatin1StringView("opNotSupported")},
    Row{AFCError::objectExists, QLatin1StringView("objectExists")},
    Row{AFCError::objectBusy, QLatin1StringView("objectBusy")},
    Row{AFCError::noSpaceLeft, QLatin1StringView("noSpaceLeft")},
    Row{AFCError::opWouldBlock, QLatin1StringView("opWouldBlock")},
    Row{AFCError::ioError, QLatin1StringView("ioError")},
    Row{AFCError::opInterrupted, QLatin1StringView("opInterrupted")},
    Row{AFCError::opInProgress, QLatin1StringView("opInProgress")},
    Row{AFCError::internalError, QLatin1StringView("internalError")},
    Row{AFCError::muxError, QLatin1StringView("muxError")},
    Row{AFCError::noMem, QLatin1StringView("noMem")},
    Row{AFCError::notEnoughData, QLatin1StringView("notEnoughData")},
    Row{AFCError::dirNotEmpty, QLatin1StringView("dirNotEmpty")},
    Row{AFCError::sslError, QLatin1StringView("sslError")},
};

} // namespace

AFCError afcErrorFromStatus(std::int32_t status) {
    for (const Row& row : table)
        if (static_cast<std::int32_t>(row.error) == status)
            return row.error;
    return AFCError::unknownError;
}

QString description(AFCError error) {
    for (const Row& row : table)
        if (row.error == error)
            return QStringLiteral("AFC Error: %1 (code %2)")
                .arg(row.name)
                .arg(static_cast<std::int32_t>(error));
    return description(AFCError::unknownError);
}

} // namespace tessary
