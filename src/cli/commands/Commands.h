#pragma once

#include "cli/commands/CliSession.h"

namespace tessary {

// What the command line can do. Not on the main thread; what fails is thrown.

/// Prints the devices that are attached. Those that have not told their figures after 15 seconds
/// are listed without.
void listDevices(CliSession& session);
/// Prints what changes, until the session is asked to stop.
void watchDevices(CliSession& session);
/// Prints the apps of an iPhone that share files.
void listApps(CliSession& session);
/// Prints what is known of a device, or of a path on it.
void showInfo(CliSession& session);

/// Prints a folder of a phone, folders first.
void listFolder(CliSession& session);
/// Prints what fits a pattern below a folder of a phone, as it is found; as JSON in one document.
void findFiles(CliSession& session);
/// Copies a file or folder from a phone, or to one, with progress. What was left out makes it a
/// failure.
void getFiles(CliSession& session);
void putFiles(CliSession& session);
void makeFolders(CliSession& session);
/// Deletes files, and folders with everything in them.
void removeFiles(CliSession& session);
/// Renames, moves, or both at once: all of it or nothing.
void moveFile(CliSession& session);

/// Runs a sync of a folder here and a folder on a phone, or shows what it would do.
void syncFolders(CliSession& session);
/// Copies photos and videos that were not fetched from this phone yet. What was fetched before is
/// not asked for again, whatever it is called here now.
void importPhotos(CliSession& session);
/// Shows a phone (an app's documents, the photos) in an empty folder, for reading only, until it is
/// unmounted from outside or the session is asked to stop. A phone that goes ends it, too.
void mountFiles(CliSession& session);

} // namespace tessary
