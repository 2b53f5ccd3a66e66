#include "cli/commands/Commands.h"

#include "base/threads/CancellationError.h"
#include "cli/devices/DeviceFollower.h"
#include "cli/terminal/CliFailure.h"
#include "transfer/mount/PhoneMount.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>

#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <mutex>
#include <vector>

namespace tessary {

namespace {

/// How soon it is noticed that a mount was ended from outside.
constexpr std::chrono::seconds lookInterval(1);

void requireEmptyFolder(const QString& path) {
    if (!QFileInfo(path).isDir())
        throw CliFailure(QStringLiteral("There is no folder %1. Make it first.").arg(path));
    if (!QDir(path).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))
        throw CliFailure(QStringLiteral("The folder %1 is not empty.").arg(path));
}

bool isMounted(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    struct stat self {};
    struct stat above {};
    return ::stat(name.constData(), &self) == 0 &&
           ::stat((name + "/..").constData(), &above) == 0 && self.st_dev != above.st_dev;
}

} // namespace

void mountFiles(CliSession& session) {
    const QString& folder = session.request().localPath;
    requireEmptyFolder(folder);
    const auto live = session.files().liveInfo(session.stop());
    const auto trees =
        mountedTrees(session.files(), live ? live->volumes : std::vector<StorageVolume>());
    for (const FileTreeRoot& tree : trees) // says now what is wrong, and not each reader later
        (void)requireFolder(session.files(), tree.path, session.stop());
    std::mutex outputMutex; // readers fail on threads of their own
    const auto mount = PhoneMount::mount(session.sharedFiles(), trees, folder,
                                         [&](const FileItem& item, const Error& error) {
                                             const std::scoped_lock lock(outputMutex);
                                             session.fail("Not read", item.path, error);
                                         });
    if (!mount)
        throw CliFailure(QStringLiteral("This computer cannot show folders on demand: FUSE "
                                        "(fusermount3, /dev/fuse) is missing."));
    {
        const std::scoped_lock lock(outputMutex);
        if (session.request().json)
            session.print(QJsonObject{{QLatin1StringView("path"), folder}});
        else
            session.printLine(
                QStringLiteral("Mounted. End it with Ctrl-C or fusermount3 -u %1").arg(folder));
        session.flushOutput();
    }
    DeviceFollower devices(DeviceFollower::Mode::listening, session.setup().sources,
                           session.setup().services, session.request().alsoAccept);
    const bool isOnUSB = !session.device().usbLocation.isEmpty();
    bool wasThere = false;
    while (isMounted(folder)) {
        const auto now = devices.next(session.stop(), lookInterval);
        if (session.stop().stop_requested())
            return; // the way to end it
        if (!now)
            continue;
        const bool isThere =
            std::any_of(now->devices.begin(), now->devices.end(), [&](const DeviceInfo& device) {
                return device.udid == session.device().udid;
            });
        // It may be gone before the first look at the bus.
        if (!isThere && (wasThere || (isOnUSB && now->isSettled)))
            throw CliFailure(
                QStringLiteral("The phone was unplugged: %1 is unmounted.").arg(folder));
        wasThere = isThere;
    }
}

} // namespace tessary
