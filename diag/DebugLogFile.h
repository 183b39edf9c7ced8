// SPDX-License-Identifier: MIT
// Appending to the debug log.
#pragma once

namespace Pegasus {

/// Appends a text to a log file, which is opened and closed for it: what was logged is on disk when
/// the call returns, even if the process dies right after.
///
/// A file that does not exist is made with permissions 0664 less the process's umask.
///
/// @param fileName path of the file, relative to the working directory; an empty one logs nothing
/// @param text     zero-terminated; written as it stands
///
/// Reports no failure: a file that cannot be opened or written loses the text. A FIFO without a
/// reader counts as such a file and does not block. Any thread may call it; the texts of two threads
/// come one after the other in either order.
void appendToLogFile(const char* fileName, const char* text);

}  // namespace Pegasus
