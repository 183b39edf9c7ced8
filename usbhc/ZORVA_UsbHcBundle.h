// SPDX-License-Identifier: MIT
// The fixed texts of the USB host-controller test, and the number parser for the codes they go by.
#pragma once

#include <string>

namespace Pegasus {

/// The texts of the USB host-controller test: recommended actions, report labels, statuses, and the
/// names of USB interface classes, subclasses and protocols.
///
/// A look-up returns a constant text with static lifetime, or null for a code that has none:
/// callers must look before they use it. Blanks at the end of a text belong to it. All operations
/// may be called from any thread.
class ZORVA_UsbHcBundle {
public:
    /// The recommended action `code`.
    static const char* getAction(int code);
    /// The report label `code`.
    static const char* getGeneralString(int code);
    /// The status `code`; 4 has no text.
    static const char* getStatus(int code);
    /// The name of an interface class; 0 and classes above 9 have none.
    static const char* getClass(int classCode);
    /// The name of a subclass of an interface class.
    static const char* getSubClass(int classCode, int subClassCode);
    /// The name of a protocol of an interface class. One of them is not ASCII but Windows-1252.
    static const char* getProtocol(int classCode, int protocolCode);

    /// The value of a code of the device list. Codes are hexadecimal there and are read as decimal
    /// all the same, which is how the tables are keyed: "50" gives 50, "0a" and "ff" give 0.
    ///
    /// One leading '0' is dropped; of the rest leading blanks are skipped and decimal digits count
    /// up to the first other character. Without digits the value is 0. Throws std::out_of_range for
    /// an empty text.
    static int getIntValue(const std::string& text);
};

}  // namespace Pegasus
