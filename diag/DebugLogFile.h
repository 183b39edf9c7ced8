// SPDX-License-Identifier: MIT
// The debug log: its name, and appending to it.
#pragma once

namespace Pegasus {

/// Name of the debug log, fixed when the library is built (CMake variable ZORVA_LOG_FILE); empty if
/// nothing is to be logged.
extern const char* const debugLogName;

/// Appends a text to a log file. The file is opened and closed in each call, so that nothing is
/// lost if the process dies right after it.
///
/// A missing file is created with permissions 0664 less the process's umask. One that is there is
/// written only if nobody else can have put it there: a regular file with one name, of the process's
/// user or of root, that is not reached through a symbolic link.
///
/// @param fileName path of the file, relative to the working directory; nothing is logged if empty
/// @param text     zero-terminated; written unchanged
///
/// Failures are ignored: if the file may not or cannot be opened or written, the text is lost. A
/// FIFO does not block, and a limit on the size of files (RLIMIT_FSIZE) cuts the text off without a
/// signal. Any thread may call it; the texts of two threads are written one after the other, in
/// either order.
void appendToLogFile(const char* fileName, const char* text);

}  // namespace Pegasus
