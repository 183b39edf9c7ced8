// SPDX-License-Identifier: MIT
#include "devicelist/ClassNames.h"

namespace devicelist {

namespace {

struct ClassName {
    std::uint8_t code;
    std::string_view abbreviation;
};

constexpr ClassName classNames[] = {
    {0x00, ">ifc"},  {0x01, "audio"}, {0x02, "comm."}, {0x03, "HID"},   {0x05, "PID"},
    {0x06, "still"}, {0x07, "print"}, {0x08, "stor."}, {0x09, "hub"},   {0x0a, "data"},
    {0x0b, "scard"}, {0x0d, "c-sec"}, {0x0e, "video"}, {0x0f, "perhc"}, {0x10, "av"},
    {0x11, "blbrd"}, {0x12, "bridg"}, {0xe0, "wlcon"}, {0xef, "misc"},  {0xfe, "app."},
    {0xff, "vend."},
};

}  // namespace

std::string_view abbreviationOfClass(std::uint8_t code) {
    for (const ClassName& known : classNames) {
        if (known.code == code) {
            return known.abbreviation;
        }
    }
    return "unk.";
}

}  // namespace devicelist
