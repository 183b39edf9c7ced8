// SPDX-License-Identifier: MIT
// The return codes of the methods of a diagnostic test.
#pragma once

#include <Pegasus/Common/Config.h>

namespace Pegasus::ReturnCode {

constexpr Uint32 SUCCESS = 0;
/// There is no result record for this test and element.
constexpr Uint32 NO_RESULT_RECORD = 1024;
/// The test is in progress for this element.
constexpr Uint32 TEST_IN_PROGRESS = 1028;
/// An exclusive test runs on the element.
constexpr Uint32 EXCLUSIVE_TEST_RUNNING = 1034;
/// A parameter is no reference; of the estimated time: there is no such test.
constexpr Uint32 NOT_A_REFERENCE = 1040;
/// The managed element cannot be resolved to an instance with properties.
constexpr Uint32 NO_SUCH_ELEMENT = 1044;
/// A parameter is absent.
constexpr Uint32 ABSENT_PARAMETER = 1050;

}  // namespace Pegasus::ReturnCode
