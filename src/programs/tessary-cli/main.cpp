#include "cli/program/CliProgram.h"
#include "platform/process/ChildChannel.h"

#include <algorithm>
#include <string_view>

#include <unistd.h>

using namespace tessary;

int main(int argc, char** argv) {
    // Whoever wants virtual phones gets the program that has them: the libraries of their other
    // half would be loaded at each start.
    const auto isForDemo = [](std::string_view argument) { return argument.starts_with("--demo"); };
    if (std::any_of(argv + 1, argv + argc, isForDemo)) {
        const QString demo = installedHelper(QStringLiteral("tessary-cli-demo"));
        execv(qPrintable(demo), argv);
    }
    return runCommandLine(argc, argv, [](const CliRequest& request, const SettingsStore&) {
        if (request.demo)
            throw std::runtime_error("tessary-cli-demo is not installed");
        return makeSystemPhones();
    });
}
