// SPDX-License-Identifier: MIT
#include "devicelist/ClassNames.h"

namespace devicelist {

namespace {

struct ClassName {
    std::uint8_t code;
    std::string_view abbreviation;
    std::string_view words;
};

constexpr std::string_view unknown = "unk.";

constexpr ClassName classNames[] = {
    {0x00, ">ifc", "by interface"},
    {0x01, "audio", "audio"},
    {0x02, "comm.", "communications"},
    {0x03, "HID", "human interface"},
    {0x05, "PID", "physical"},
    {0x06, "still", "still image"},
    {0x07, "print", "printer"},
    {0x08, "stor.", "mass storage"},
    {0x09, "hub", "hub"},
    {0x0a, "data", "data"},
    {0x0b, "scard", "smart card"},
    {0x0d, "c-sec", "content security"},
    {0x0e, "video", "video"},
    {0x0f, "perhc", "healthcare"},
    {0x10, "av", "audio and video"},
    {0x11, "blbrd", "billboard"},
    {0x12, "bridg", "Type-C bridge"},
    {0xdc, unknown, "diagnostic"},
    {0xe0, "wlcon", "wireless"},
    {0xef, "misc", "miscellaneous"},
    {0xfe, "app.", "application"},
    {0xff, "vend.", "vendor"},
};

const ClassName* find(std::uint8_t code) {
    for (const ClassName& known : classNames) {
        if (known.code == code) {
            return &known;
        }
    }
    return nullptr;
}

}  // namespace

std::string_view abbreviationOfClass(std::uint8_t code) {
    const ClassName* known = find(code);
    return known == nullptr ? unknown : known->abbreviation;
}

std::string_view wordsOfClass(std::uint8_t code) {
    const ClassName* known = find(code);
    return known == nullptr ? std::string_view() : known->words;
}

}  // namespace devicelist
