#pragma once

#include "cli/commands/CliSession.h"

namespace tessary {

/// Prints the devices that are attached. Those that have not told their figures after 15 seconds
/// are listed without. Like all commands: not on the main thread, and what fails is thrown.
void listDevices(CliSession& session);
/// Prints what changes, until the session is asked to stop.
void watchDevices(CliSession& session);
/// Prints the apps of an iPhone that share files.
void listApps(CliSession& session);
/// Prints what is known of a device, or of a path on it.
void showInfo(CliSession& session);

} // namespace tessary
