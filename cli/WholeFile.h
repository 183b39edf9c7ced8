// SPDX-License-Identifier: MIT
// Files that are written whole or not at all.
#pragma once

#include <string>
#include <string_view>

namespace usbhcdiag {

/// Writes `content` to the file `path`, in place of one that is there: into a new file in the same folder,
/// which takes the name once it is complete and on the disk. Others who may read it are those that the
/// umask allows, whatever held for the old one.
///
/// A symbolic link to a file stays and leads to the new file. Throws Failure, which names the file; then what was
/// there is unchanged, and nothing new. What is no regular file (/dev/null, a FIFO) is refused. Main thread
/// only: it asks for the umask by setting it.
void writeWholeFile(const std::string& path, std::string_view content);

}  // namespace usbhcdiag
