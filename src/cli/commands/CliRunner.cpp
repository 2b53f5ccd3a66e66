#include "cli/commands/CliRunner.h"

#include "app/texts/ErrorText.h"
#include "base/text/Printable.h"
#include "base/threads/CancellationError.h"
#include "cli/commands/Commands.h"

#include <algorithm>
#include <array>
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

using Command = CliRequest::Command;

struct Deed {
    Command command;
    void (*carryOut)(CliSession&);
};
constexpr std::array deeds{
    Deed{Command::devices, listDevices}, Deed{Command::watch, watchDevices},
    Deed{Command::apps, listApps},       Deed{Command::list, listFolder},
    Deed{Command::info, showInfo},       Deed{Command::get, getFiles},
    Deed{Command::put, putFiles},        Deed{Command::makeFolder, makeFolders},
    Deed{Command::remove, removeFiles},  Deed{Command::move, moveFile},
    Deed{Command::sync, syncFolders},    Deed{Command::importPhotos, importPhotos},
    Deed{Command::find, findFiles},      Deed{Command::mount, mountFiles},
};

} // namespace

CliRunner::ExitStatus CliRunner::run(const CliRequest& request,
                                     const std::stop_token& stop) noexcept {
    CliSession session(setup_, request, stop);
    try {
        sayIfDamaged(setup_);
        std::ranges::find(deeds, request.command, &Deed::command)->carryOut(session);
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
