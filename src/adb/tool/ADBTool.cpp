#include "adb/tool/ADBTool.h"

#include <QDir>
#include <QFileInfo>

namespace tessary {

namespace {

QStringList usualPaths() {
    const QString inSDK = QStringLiteral("/platform-tools/adb");
    QStringList paths;
    for (const char* variable : {"ANDROID_HOME", "ANDROID_SDK_ROOT"})
        if (const QString sdk = qEnvironmentVariable(variable); !sdk.isEmpty())
            paths.append(sdk + inSDK);
    for (const QString& folder : qEnvironmentVariable("PATH").split(QLatin1Char(':')))
        if (folder.startsWith(QLatin1Char('/')))
            paths.append(folder + QStringLiteral("/adb"));
    return paths + QStringList{QDir::homePath() + QStringLiteral("/Android/Sdk") + inSDK,
                               QDir::homePath() + QStringLiteral("/Library/Android/sdk") + inSDK,
                               QStringLiteral("/opt/homebrew/bin/adb"),
                               QStringLiteral("/usr/local/bin/adb"),
                               QStringLiteral("/usr/bin") + QStringLiteral("/adb")};
}

} // namespace

std::optional<QString> findADBTool(const std::optional<QStringList>& paths) {
    for (const QString& path : paths.value_or(usualPaths())) {
        const QFileInfo info(path);
        if (info.isFile() && info.isExecutable())
            return path;
    }
    return std::nullopt;
}

} // namespace tessary
