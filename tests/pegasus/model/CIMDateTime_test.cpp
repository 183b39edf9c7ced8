// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <ctime>
#include <regex>
#include <vector>

#include <Pegasus/Common/CIMDateTime.h>

#include "tests/pegasus/model/recorded.h"

using modeltest::utf8;
using namespace Pegasus;

namespace {

CIMDateTime date(const char* text) {
    return {String(text)};
}

const char* const badFormat = "invalid datetime format";

TEST(CIMDateTime, ReadsPointsInTimeAndIntervals) {
    struct Case {
        const char* row;
        const char* text;
        const char* written;
        bool isInterval;
        Uint64 microseconds;
    };
    for (const Case& each :
         {Case{"datetime-003", "20020308070100.000000-240", "20020308070100.000000-240", false,
               63182804460000000},
          {"datetime-004", "20020308070100.000000+000", "20020308070100.000000+000", false,
           63182790060000000},
          {"datetime-005", "20020308070100.000000-000", "20020308070100.000000+000", false,
           63182790060000000},
          {"datetime-006", "20020308070100.000000+060", "20020308070100.000000+060", false,
           63182786460000000},
          {"datetime-007", "20020308070100.123456+720", "20020308070100.123456+720", false,
           63182746860123456},
          {"datetime-010", "20040229000000.000000+000", "20040229000000.000000+000", false,
           63245232000000000},
          {"datetime-017", "20020308070100.00000*-240", "20020308070100.00000*-240", false,
           63182804460000000},
          {"datetime-018", "2002030807****.******-240", "2002030807****.******-240", false,
           63182804400000000},
          {"datetime-019", "200203080701**.******-240", "200203080701**.******-240", false,
           63182804460000000},
          {"datetime-020", "00000001020304.000005:000", "00000001020304.000005:000", true,
           93784000005},
          {"datetime-021", "00000001020304.00000*:000", "00000001020304.00000*:000", true,
           93784000000},
          {"datetime-022", "99999999235959.999999:000", "99999999235959.999999:000", true,
           8639999999999999999},
          {"datetime-023", "00000000000000.000000:000", "00000000000000.000000:000", true, 0},
          {"datetime-036", "00010101000000.000000+000", "00010101000000.000000+000", false,
           31622400000000},
          {"datetime-038", "99991231235959.999999+000", "99991231235959.999999+000", false,
           315569519999999999},
          {"datetime-039", "10000101000000.000000+720", "10000101000000.000000+720", false,
           31556952000000000},
          {"datetime-040", "19700101000000.000000+000", "19700101000000.000000+000", false,
           62167219200000000},
          {"", "2002**********.******+060", "2002**********.******+060", false, 63177058800000000},
          {"", "**************.******:000", "**************.******:000", true, 0},
          {"", "00000101000000.000000+000", "00000101000000.000000+000", false, 0}}) {
        ROW(each.row);
        const CIMDateTime read = date(each.text);
        EXPECT_EQ(read.toString(), each.written);
        EXPECT_EQ(read.isInterval(), each.isInterval);
        EXPECT_EQ(read.toMicroSeconds(), each.microseconds);
    }
}

TEST(CIMDateTime, RejectsWhatIsOutOfRange) {
    struct Case {
        const char* row;
        const char* text;
        const char* fault;
    };
    for (const Case& each :
         {Case{"datetime-009", "20020229000000.000000+000", "illegal day number"},
          {"datetime-011", "20021301000000.000000+000", "illegal month number"},
          {"datetime-012", "20020001000000.000000+000", "illegal month number"},
          {"datetime-013", "20020132000000.000000+000", "illegal day number"},
          {"datetime-014", "20020308240000.000000+000", "illegal hours number "},
          {"datetime-015", "20020308236000.000000+000", "illegal minutes number "},
          {"", "20020308235960.000000+000", "illegal seconds number "},
          {"datetime-024", "00000001240000.000000:000", "illegal hours number "},
          {"", "20020400000000.000000+000", "illegal day number"},
          {"", "20020431000000.000000+000", "illegal day number"},
          {"", "19000229000000.000000+000", "illegal day number"},
          {"", "00000101000000.000000+001", "point in time before the year 0 in UTC"}}) {
        ROW(each.row);
        EXPECT_THROWS(date(each.text), DateTimeOutOfRangeException,
                      std::string("DateTime is out of range : ") + each.fault);
    }
}

TEST(CIMDateTime, RejectsWhatIsNoDate) {
    const std::vector<modeltest::TextCase> cases{{"datetime-025", "00000001020304.000005:001"},
                                                 {"datetime-026", ""},
                                                 {"datetime-027", "x"},
                                                 {"datetime-028", "20020308070100.000000"},
                                                 {"datetime-029", "20020308070100.000000-24"},
                                                 {"datetime-030", "20020308070100.000000-2400"},
                                                 {"datetime-032", "2002-03-08T07:01:00Z"},
                                                 {"datetime-033", " 20020308070100.000000-240"},
                                                 {"datetime-034", "20020308070100.000000*240"},
                                                 {"datetime-035", "2002030807010a.000000-240"},
                                                 {"datetime-041", "****0308070100.000000-240"},
                                                 {"", "********020304.000005:000"},
                                                 {"", "20020308070100,000000-240"},
                                                 {"", "20020308070100.000000-2a0"},
                                                 {"", "200203080701*0.000000-240"},
                                                 {"", "2002030807010*.******-240"},
                                                 {"", "200*030807****.******-240"},
                                                 {"", "20************.******-240"},
                                                 {"", "000000********.******:000"},
                                                 {"", "200**********.*******-240"},
                                                 {"", "0000000*******.******:000"},
                                                 {"", "20020308070100.00*000-240"},
                                                 {"", "2002030807010\xC3\xA9.000000-240"}};
    for (const modeltest::TextCase& each : cases) {
        ROW(each.row);
        EXPECT_THROWS(date(each.text), InvalidDateTimeFormatException, badFormat) << each.text;
    }
}

std::string compared(const CIMDateTime& x, const CIMDateTime& y) {
    const auto word = [](bool isTrue) { return isTrue ? "true" : "false"; };
    return std::string("== ") + word(x == y) + " equal() " + word(x.equal(y)) +
           " != " + word(x != y) + " < " + word(x < y);
}

TEST(CIMDateTime, ComparesInstantsAndLengths) {
    const CIMDateTime point = date("20020308070100.000000-240");
    {
        ROW("datetime-042");
        EXPECT_EQ(compared(point, date("20020308070100.000000-240")),
                  "== true equal() true != false < false");
    }
    {
        ROW("datetime-043");
        EXPECT_EQ(compared(point, date("20020308110100.000000+000")),
                  "== true equal() true != false < false");
    }
    {
        ROW("datetime-044");
        EXPECT_EQ(compared(point, date("20020308070100.000001-240")),
                  "== false equal() false != true < true");
    }
    {
        ROW("datetime-046");
        EXPECT_EQ(compared(date("200203080701**.******-240"), point),
                  "== true equal() true != false < false");
    }
    {
        ROW("datetime-047");
        EXPECT_EQ(compared(CIMDateTime(), date("00000001020304.000005:000")),
                  "== false equal() false != true < true");
    }
    const CIMDateTime later = date("20020308070101.000000-240");
    EXPECT_TRUE(point <= later);
    EXPECT_TRUE(point <= point);
    EXPECT_FALSE(later <= point);
    EXPECT_TRUE(later > point);
    EXPECT_TRUE(later >= point);
    EXPECT_FALSE(point >= later);
}

TEST(CIMDateTime, DoesNotComparePointsWithIntervals) {
    ROW("datetime-045");
    const CIMDateTime point = date("20020308070100.000000-240");
    const CIMDateTime interval;
    const char* const fault =
        "type mismatch: Trying to compare CIMDateTime objects of differing types";
    EXPECT_THROWS(point == interval, TypeMismatchException, fault);
    EXPECT_THROWS(point.equal(interval), TypeMismatchException, fault);
    EXPECT_THROWS(point != interval, TypeMismatchException, fault);
    EXPECT_THROWS(point < interval, TypeMismatchException, fault);
}

TEST(CIMDateTime, IsMadeFromMicroseconds) {
    {
        ROW("datetime-048");
        EXPECT_EQ(CIMDateTime(0, true).toString(), "00000000000000.000000:000");
    }
    {
        ROW("datetime-049");
        EXPECT_EQ(CIMDateTime(1000000, false).toString(), "00000101000001.000000+000");
    }
    {
        ROW("datetime-050");
        EXPECT_EQ(CIMDateTime(93784000005, true).toString(), "00000001020304.000005:000");
    }
    {
        ROW("datetime-051");
        EXPECT_THROWS(CIMDateTime(~Uint64(0), true), DateTimeOutOfRangeException,
                      "DateTime is out of range : Cannot create a CIMDateTime interval greater "
                      "than 100 million days");
    }
    EXPECT_EQ(CIMDateTime(8639999999999999999, true).toString(), "99999999235959.999999:000");
    EXPECT_THROW(CIMDateTime(8640000000000000000, true), DateTimeOutOfRangeException);
    EXPECT_EQ(CIMDateTime(315569519999999999, false).toString(), "99991231235959.999999+000");
    EXPECT_THROWS(CIMDateTime(315569520000000000, false), DateTimeOutOfRangeException,
                  "DateTime is out of range : Cannot create a CIMDateTime point in time after the "
                  "year 9999");
}

TEST(CIMDateTime, IsSetAndCleared) {
    CIMDateTime changed = date("20020308070100.000000-240");
    {
        ROW("datetime-058");
        CIMDateTime copy(changed);
        copy.clear();
        EXPECT_EQ(changed.toString(), "20020308070100.000000-240");
    }
    {
        ROW("datetime-052");
        EXPECT_THROWS(changed.set("bad"), InvalidDateTimeFormatException, badFormat);
        EXPECT_EQ(changed.toString(), "00000000000000.000000:000");
    }
    changed.set("20020308070100.000000-240");
    EXPECT_EQ(changed.toString(), "20020308070100.000000-240");
    {
        ROW("datetime-053");
        changed.clear();
        EXPECT_EQ(changed.toString(), "00000000000000.000000:000");
        EXPECT_TRUE(changed.isInterval());
    }
}

TEST(CIMDateTime, AddsAndSubtracts) {
    const CIMDateTime point = date("20020308070100.000000-240");
    {
        ROW("datetime-054");
        EXPECT_EQ(CIMDateTime::getDifference(point, date("20020308070101.000000-240")), 1000000);
        EXPECT_EQ(CIMDateTime::getDifference(date("20020308070101.000000-240"), point), -1000000);
    }
    {
        ROW("datetime-055");
        EXPECT_THROWS(CIMDateTime::getDifference(CIMDateTime(), point),
                      InvalidDateTimeFormatException, badFormat);
    }
    {
        ROW("datetime-056");
        EXPECT_EQ((point + date("00000001000000.000000:000")).toString(),
                  "20020309070100.000000-240");
    }
    CIMDateTime sum = date("00000001000000.000000:000");
    sum += date("00000001000000.0*****:000");
    EXPECT_EQ(sum.toString(), "00000002000000.0*****:000");
    EXPECT_THROWS(sum + point, TypeMismatchException,
                  "type mismatch: only an interval can be added to a CIMDateTime");
    EXPECT_THROW(date("99991231235959.000000+000") + date("00000000000001.000000:000"),
                 DateTimeOutOfRangeException);
    EXPECT_THROW(date("99991231235959.000000+060") + date("00000000000001.000000:000"),
                 DateTimeOutOfRangeException);
    EXPECT_THROW(date("99999999235959.999999:000") + date("99999999235959.999999:000"),
                 DateTimeOutOfRangeException);
}

TEST(CIMDateTime, KnowsTheCurrentTimeAndOffset) {
    ROW("datetime-002");
    const CIMDateTime before = CIMDateTime::getCurrentDateTime();
    const CIMDateTime after = CIMDateTime::getCurrentDateTime();
    const std::string text = utf8(before.toString());
    EXPECT_TRUE(std::regex_match(text, std::regex(R"(\d{14}\.\d{6}[+-]\d{3})"))) << text;
    EXPECT_TRUE(before <= after);
    const auto now = static_cast<Uint64>(std::time(nullptr)) * 1000000 + 62167219200000000;
    EXPECT_LT(now - before.toMicroSeconds() + 60000000, 120000000U);
}

TEST(CIMDateTime, WritesTheCurrentTimeWithTheOffsetOfTheZone) {
    ASSERT_EQ(setenv("TZ", "XXX-05:30", 1), 0);
    tzset();
    const std::string text = utf8(CIMDateTime::getCurrentDateTime().toString());
    unsetenv("TZ");
    tzset();
    EXPECT_EQ(text.substr(21), "+330");
}

TEST(CIMDateTime, WritesEveryDayOfFourCenturiesAsItReadIt) {
    constexpr Uint64 day = 86400000000;
    std::string last;
    for (Uint64 days = 1900 * 365; days < 1900 * 365 + 146098; ++days) {
        const String text = CIMDateTime(days * day, false).toString();
        ASSERT_EQ(CIMDateTime(text).toMicroSeconds(), days * day);
        ASSERT_GT(utf8(text), last);
        last = utf8(text);
    }
}

}  // namespace
