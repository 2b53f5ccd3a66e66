#include "cli/commands/CliRunner.h"

#include "app/texts/ErrorText.h"
#include "base/text/Printable.h"
#include "base/threads/CancellationError.h"
#include "cli/commands/DeviceCommands.h"
#include "cli/commands/FileCommands.h"
#include "cli/commands/FindCommand.h"
#include "cli/commands/ImportCommand.h"
#include "cli/commands/MountCommand.h"
#include "cli/commands/SyncCommand.h"

#include <exception>

namespace tessary {

namespace {

/// Settings that made no sense count as none: the user should know why.
void sayIfDamaged(const CliSetup& setup) {
    const auto trouble = setup.defaults.trouble();
    if (trouble && trouble->kind == SettingsTrouble::Kind::damaged)
        std::fprintf(setup.error,
                     "tessary-cli: The settings in %s are damaged and count as none. The next "
                     "change keeps the damaged file beside the new one.\n",
                     qUtf8Printable(printable(trouble->file)));
}

void carryOut(CliSession& session) {
    using Command = CliRequest::Command;
    switch (session.request().command) {
    case Command::devices:
        return listDevices(session);
    case Command::watch:
        return watchDevices(session);
    case Command::apps:
        return listApps(session);
    case Command::list:
        return listFolder(session);
    case Command::info:
        return showInfo(session);
    case Command::get:
        return getFiles(session);
    case Command::put:
        return putFiles(session);
    case Command::makeFolder:
        return makeFolders(session);
    case Command::remove:
        return removeFiles(session);
    case Command::move:
        return moveFile(session);
    case Command::sync:
        return syncFolders(session);
    case Command::importPhotos:
        return importPhotos(session);
    case Command::find:
        return findFiles(session);
    case Command::mount:
        return mountFiles(session);
    }
}

} // namespace

CliRunner::ExitStatus CliRunner::run(const CliRequest& request,
                                     const std::stop_token& stop) noexcept {
    CliSession session(setup_, request, stop);
    try {
        sayIfDamaged(setup_);
        carryOut(session);
        session.flushOutput();
    } catch (const CancellationError&) {
        session.fail(QStringLiteral("Interrupted."));
        return interrupted;
    } catch (const Error& error) {
        session.fail(errorText(error).text());
    } catch (const std::exception& error) {
        session.fail(QString::fromUtf8(error.what()));
    }
    return session.hasFailed() ? failed : done;
}

} // namespace tessary
