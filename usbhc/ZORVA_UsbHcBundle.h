// SPDX-License-Identifier: MIT
// The fixed texts of the USB host-controller test, and the parser of the codes that select them.
#pragma once

#include <string>

namespace Pegasus {

/// The texts of the USB host-controller test: recommended actions, report labels, statuses, and the
/// names of USB interface classes, subclasses and protocols.
///
/// A look-up returns a constant text with static lifetime, or null for a code without a text, which
/// callers must check. Trailing blanks are part of a text. All operations may be called from any
/// thread.
class ZORVA_UsbHcBundle {
public:
    /// The recommended action `code`.
    static const char* getAction(int code);
    /// The report label `code`.
    static const char* getGeneralString(int code);
    /// The status `code`; 4 has no text.
    static const char* getStatus(int code);
    /// The name of an interface class; only 1 to 9 have one.
    static const char* getClass(int classCode);
    /// The name of a subclass of an interface class.
    static const char* getSubClass(int classCode, int subClassCode);
    /// The name of a protocol of an interface class. One name is in Windows-1252, the others in
    /// ASCII.
    static const char* getProtocol(int classCode, int protocolCode);

    /// The value of a code of the device list. Codes are hexadecimal there but are read as decimal,
    /// as the keys of the tables are: "50" gives 50, "0a" and "ff" give 0.
    ///
    /// One leading '0' is dropped. In the rest leading blanks are skipped, and decimal digits are
    /// read up to the first other character. Without digits the value is 0. Throws
    /// std::out_of_range for an empty text.
    static int getIntValue(const std::string& text);
};

}  // namespace Pegasus
