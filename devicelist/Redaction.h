// SPDX-License-Identifier: MIT
// Takes serial numbers out of device lists that are to be published.
#pragma once

#include <string>
#include <string_view>

namespace devicelist {

/// The list `text` with a placeholder for each serial number: as many bytes, the same for the same serial
/// number throughout the list, and another for another one. All other bytes stay, so that the list replays
/// as before.
///
/// A serial number is whatever follows "SerialNumber=" in its line. Lines after it that no list has, up to
/// the next one that a list has, count as one each: a serial number may hold line feeds. These stay:
/// 1. The serial numbers of root hubs (level 0). The kernel makes them from the bus address of the host
///    controller, by which the test's elements are named; they tell a place, and no thing.
/// 2. Those of blanks and control characters alone.
/// 3. Zero bytes, at which the test stops reading, and the carriage return of a line end.
///
/// A placeholder is a number in base 36, with "X" before it up to the length: "XXXXX1". Of more serial
/// numbers of one length than there are such numbers, later ones get those of earlier ones. Nothing of a
/// serial number can be told from its placeholder, nor can placeholders of two lists be compared.
///
/// Names stay, whatever a device has in them. Any thread may call it.
std::string redactSerialNumbers(std::string_view text);

}  // namespace devicelist
