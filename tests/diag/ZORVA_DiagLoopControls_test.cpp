// SPDX-License-Identifier: MIT
#include "diag/ZORVA_DiagLoopControls.h"

#include <map>

#include <gtest/gtest.h>

#include "tests/support/Thrown.h"
#include "tests/support/VirtualSlot.h"

namespace Pegasus {
namespace {

using Numbers = std::vector<Uint16>;
using Texts = std::vector<const char*>;

// Loop controls of a record in memory. Its property names are case-sensitive, so that tests see
// which names are requested.
class LoopControls : public ZORVA_DiagLoopControls {
public:
    LoopControls() { setLoops(0, 0); }

    LoopControls(const Numbers& controls, const Texts& parameters) : LoopControls() {
        set(controls, parameters);
    }

    void set(const Numbers& controls, const Texts& parameters) {
        Array<Uint16> numbers;
        for (const Uint16 control : controls) {
            numbers.append(control);
        }
        Array<String> texts;
        for (const char* parameter : parameters) {
            texts.append(parameter);
        }
        record["LoopControl"] = CIMValue(numbers);
        record["LoopControlParameter"] = CIMValue(texts);
    }

    void setState(Uint16 state) { record["TestState"] = CIMValue(state); }

    void setLoops(Uint32 passed, Uint32 failed) {
        setState(0);
        record["LoopsPassed"] = CIMValue(passed);
        record["LoopsFailed"] = CIMValue(failed);
        record["Loopsfailed"] = CIMValue(failed);
    }

    CIMValue retrieveResultProperty(String propertyName) override {
        read.push_back(text(propertyName));
        return record.at(text(propertyName));
    }
    void writeToResults(String propertyName, CIMValue value) override {
        written.push_back(text(propertyName) + " " + text(value));
        record[text(propertyName)] = value;
    }

    std::map<std::string, CIMValue> record;
    std::vector<std::string> read;
    std::vector<std::string> written;
};

Uint32 codeOf(const Numbers& controls) {
    return LoopControls(controls, Texts(controls.size(), "5")).getThisTestLoopControl();
}

TEST(ZorvaDiagLoopControls, EveryCombinationHasItsCode) {
    EXPECT_EQ(codeOf({2}), 2U);
    EXPECT_EQ(codeOf({3}), 3U);
    EXPECT_EQ(codeOf({4}), 4U);
    EXPECT_EQ(codeOf({5}), 5U);
    EXPECT_EQ(codeOf({3, 4}), 51U);
    EXPECT_EQ(codeOf({4, 3}), 51U);
    EXPECT_EQ(codeOf({3, 5}), 52U);
    EXPECT_EQ(codeOf({4, 5}), 53U);
    EXPECT_EQ(codeOf({3, 4, 5}), 54U);
    EXPECT_EQ(codeOf({5, 4, 3}), 54U);
}

TEST(ZorvaDiagLoopControls, ContinuousOverridesAllOthers) {
    EXPECT_EQ(codeOf({2, 3}), 2U);
    EXPECT_EQ(codeOf({3, 4, 5, 2}), 2U);
}

TEST(ZorvaDiagLoopControls, NoneOfTheKnownControlsIs56AndStopsAtOnce) {
    EXPECT_EQ(codeOf({}), 56U);
    EXPECT_EQ(codeOf({0, 1}), 56U);
    EXPECT_EQ(codeOf({6, 99}), 56U);
    EXPECT_TRUE(LoopControls().continueLoopingCheck(56));
}

TEST(ZorvaDiagLoopControls, UnknownControlsAmongKnownOnesAreIgnored) {
    EXPECT_EQ(codeOf({0, 3, 1, 77}), 3U);
}

TEST(ZorvaDiagLoopControls, NullSettingsAreNone) {
    LoopControls controls;
    controls.record["LoopControl"] = CIMValue(CIMTYPE_UINT16, true);
    controls.record["LoopControlParameter"] = CIMValue(CIMTYPE_STRING, true);
    EXPECT_EQ(controls.getThisTestLoopControl(), 56U);
}

TEST(ZorvaDiagLoopControls, ParameterListThatIsTooShortIsOutOfBounds) {
    LoopControls controls({3, 4}, {"5"});
    EXPECT_EQ(thrownBy<IndexOutOfBoundsException>([&] { controls.getThisTestLoopControl(); }),
              "index out of bounds");
}

TEST(ZorvaDiagLoopControls, ControlsWithoutParameterNeedNone) {
    EXPECT_EQ(LoopControls({2, 0, 9}, {}).getThisTestLoopControl(), 2U);
}

TEST(ZorvaDiagLoopControls, CountStopsWhenAsManyLoopsHavePassedOrFailed) {
    LoopControls controls({3}, {"5"});
    ASSERT_EQ(controls.getThisTestLoopControl(), 3U);
    controls.setLoops(3, 1);
    EXPECT_FALSE(controls.continueLoopingCheck(3));
    controls.setLoops(3, 2);
    EXPECT_TRUE(controls.continueLoopingCheck(3));
    controls.setLoops(0, 6);
    EXPECT_TRUE(controls.continueLoopingCheck(3));
}

TEST(ZorvaDiagLoopControls, CountReadsLoopsfailedWithASmallF) {
    LoopControls controls({3}, {"1"});
    controls.getThisTestLoopControl();
    controls.read.clear();
    controls.LoopCountExceeded();
    EXPECT_EQ(controls.read, (std::vector<std::string>{"LoopsPassed", "Loopsfailed"}));
}

TEST(ZorvaDiagLoopControls, WithoutAnyControlEveryLimitIsReachedBeforeTheFirstLoop) {
    LoopControls controls({}, {});
    controls.getThisTestLoopControl();
    EXPECT_TRUE(controls.LoopCountExceeded());
    EXPECT_TRUE(controls.TimerExceeded());
}

TEST(ZorvaDiagLoopControls, LaterControlOfAKindOverwritesTheEarlierLimit) {
    LoopControls controls({3, 3}, {"9", "2"});
    controls.getThisTestLoopControl();
    controls.setLoops(2, 0);
    EXPECT_TRUE(controls.LoopCountExceeded());
}

TEST(ZorvaDiagLoopControls, ParameterIsADecimalNumberUpToTheFirstOtherCharacter) {
    const std::vector<std::pair<const char*, Uint32>> cases = {
        {"2", 2}, {" 2", 2}, {"2x", 2}, {"2.9", 2}, {"+2", 2}, {"007", 7}, {"0x10", 0}};
    for (const auto& parameter : cases) {
        LoopControls controls({3}, {parameter.first});
        controls.getThisTestLoopControl();
        controls.setLoops(parameter.second, 0);
        EXPECT_TRUE(controls.LoopCountExceeded()) << parameter.first;
        if (parameter.second > 0) {
            controls.setLoops(parameter.second - 1, 0);
            EXPECT_FALSE(controls.LoopCountExceeded()) << parameter.first;
        }
    }
}

TEST(ZorvaDiagLoopControls, ParameterWithoutDigitsIsZeroAndStopsAtOnce) {
    for (const char* parameter : {"", "x", " ", "-"}) {
        LoopControls controls({3, 4}, {parameter, parameter});
        EXPECT_EQ(controls.getThisTestLoopControl(), 51U);
        EXPECT_TRUE(controls.LoopCountExceeded()) << parameter;
        EXPECT_TRUE(controls.TimerExceeded()) << parameter;
    }
}

TEST(ZorvaDiagLoopControls, LimitThatDoesNotFitIsTheLargest) {
    LoopControls controls({3}, {"99999999999999999999"});
    controls.getThisTestLoopControl();
    controls.setLoops(4294967294U, 0);
    EXPECT_FALSE(controls.LoopCountExceeded());
    controls.setLoops(4294967295U, 0);
    EXPECT_TRUE(controls.LoopCountExceeded());
}

TEST(ZorvaDiagLoopControls, TimerInTheFutureDoesNotStop) {
    LoopControls controls({4}, {"3600"});
    ASSERT_EQ(controls.getThisTestLoopControl(), 4U);
    EXPECT_FALSE(controls.TimerExceeded());
    EXPECT_FALSE(controls.continueLoopingCheck(4));
}

TEST(ZorvaDiagLoopControls, TimerThatIsOverStops) {
    LoopControls controls({4}, {"-1"});
    controls.getThisTestLoopControl();
    EXPECT_TRUE(controls.TimerExceeded());
    EXPECT_TRUE(controls.continueLoopingCheck(4));
}

TEST(ZorvaDiagLoopControls, CountAndTimerStopAtWhicheverComesFirst) {
    LoopControls controls({3, 4}, {"5", "60"});
    ASSERT_EQ(controls.getThisTestLoopControl(), 51U);
    controls.setLoops(4, 0);
    EXPECT_FALSE(controls.continueLoopingCheck(51));
    controls.setLoops(5, 0);
    EXPECT_TRUE(controls.continueLoopingCheck(51));

    LoopControls late({3, 4}, {"5", "0"});
    late.getThisTestLoopControl();
    EXPECT_TRUE(late.continueLoopingCheck(51));
}

TEST(ZorvaDiagLoopControls, ErrorCountNeverStops) {
    LoopControls controls({5}, {"0"});
    ASSERT_EQ(controls.getThisTestLoopControl(), 5U);
    controls.updateErrorCount(1000);
    EXPECT_FALSE(controls.ErrorCountExceeded());
    EXPECT_FALSE(controls.continueLoopingCheck(5));
}

TEST(ZorvaDiagLoopControls, CombinationsWithErrorCountStopAtTheOthers) {
    LoopControls countReached({3, 4, 5}, {"1", "3600", "1"});
    ASSERT_EQ(countReached.getThisTestLoopControl(), 54U);
    countReached.setLoops(1, 0);
    EXPECT_TRUE(countReached.continueLoopingCheck(52));
    EXPECT_FALSE(countReached.continueLoopingCheck(53));
    EXPECT_TRUE(countReached.continueLoopingCheck(54));

    LoopControls timeOver({3, 4, 5}, {"1", "0", "1"});
    ASSERT_EQ(timeOver.getThisTestLoopControl(), 54U);
    EXPECT_FALSE(timeOver.continueLoopingCheck(52));
    EXPECT_TRUE(timeOver.continueLoopingCheck(53));
    EXPECT_TRUE(timeOver.continueLoopingCheck(54));

    LoopControls neither({3, 4, 5}, {"1", "3600", "1"});
    neither.getThisTestLoopControl();
    EXPECT_FALSE(neither.continueLoopingCheck(52));
    EXPECT_FALSE(neither.continueLoopingCheck(53));
    EXPECT_FALSE(neither.continueLoopingCheck(54));
}

TEST(ZorvaDiagLoopControls, ContinuousStopsOnlyInState7) {
    LoopControls controls;
    for (const Uint16 state : {0, 1, 2, 3, 4, 5, 6, 8}) {
        controls.setState(state);
        EXPECT_FALSE(controls.continueLoopingCheck(2)) << state;
    }
    controls.setState(7);
    EXPECT_TRUE(controls.continueLoopingCheck(2));
}

TEST(ZorvaDiagLoopControls, CodesThatAreNeverReturnedStopNothing) {
    LoopControls controls;
    for (const Uint16 code : {55, 0, 1, 6, 50, 57}) {
        EXPECT_FALSE(controls.continueLoopingCheck(code)) << code;
    }
}

TEST(ZorvaDiagLoopControls, PassIsCountedInState2AndFailureInState3) {
    LoopControls controls;
    controls.setLoops(4, 8);
    for (const Uint16 state : {0, 1, 4, 5, 7}) {
        controls.setState(state);
        controls.updateLoopCount();
    }
    EXPECT_TRUE(controls.written.empty());
    controls.setState(2);
    controls.updateLoopCount();
    controls.setState(3);
    controls.updateLoopCount();
    EXPECT_EQ(controls.written,
              (std::vector<std::string>{"LoopsPassed uint32 5", "LoopsFailed uint32 9"}));
}

TEST(ZorvaDiagLoopControls, CheckCountsThePassFirstForEveryCode) {
    for (const Uint16 code : {2, 3, 56, 99}) {
        LoopControls controls;
        controls.setState(2);
        controls.continueLoopingCheck(code);
        EXPECT_EQ(controls.written, std::vector<std::string>{"LoopsPassed uint32 1"}) << code;
    }
}

TEST(ZorvaDiagLoopControls, CountedPassReachesTheLimitInTheSameCheck) {
    LoopControls controls({3}, {"1"});
    controls.getThisTestLoopControl();
    controls.setState(2);
    EXPECT_TRUE(controls.continueLoopingCheck(3));
}

TEST(ZorvaDiagLoopControls, VirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(slotOf(&ZORVA_DiagLoopControls::retrieveResultProperty), 2U);
    EXPECT_EQ(slotOf(&ZORVA_DiagLoopControls::writeToResults), 3U);
}

}  // namespace
}  // namespace Pegasus
