// SPDX-License-Identifier: MIT
// usbhcdiag record
#include "cli/DeviceListSource.h"
#include "cli/Errors.h"
#include "cli/Listing.h"
#include "cli/Note.h"
#include "cli/NothingRead.h"
#include "cli/WholeFile.h"
#include "cli/commands/Commands.h"
#include "devicelist/Redaction.h"

namespace usbhcdiag {

ExitStatus recordList(const RecordRequest& request) {
    const DeviceListSource source = readSource(request.file);
    const std::string text =
        request.redact ? devicelist::redactSerialNumbers(source.text) : source.text;
    if (request.output && *request.output != "-") {
        writeWholeFile(*request.output, text);
    } else {
        printDocument(text);
    }
    if (!source.origin.empty()) {
        note(source.origin);
    }
    const DeviceListFinding finding = examineDeviceListText(source.text);
    if (finding.state != DeviceListFinding::State::filled) {
        throw NothingRead(nothingReadOf(source.path, finding));
    }
    return exitSuccess;
}

}  // namespace usbhcdiag
