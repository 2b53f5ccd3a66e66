#pragma once

#include "cli/commands/CliSession.h"

namespace tessary {

/// Prints a folder of a phone, folders first.
void listFolder(CliSession& session);
/// Copies a file or folder from a phone, or to one, with progress. What was left out makes it a
/// failure.
void getFiles(CliSession& session);
void putFiles(CliSession& session);
void makeFolders(CliSession& session);
/// Deletes files, and folders with everything in them.
void removeFiles(CliSession& session);
/// Renames, moves, or both at once: all of it or nothing.
void moveFile(CliSession& session);

} // namespace tessary
