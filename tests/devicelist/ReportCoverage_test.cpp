// SPDX-License-Identifier: MIT
// What is said of the report is what the test's own reader makes of the same list.
#include "devicelist/ReportCoverage.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "devicelist/DeviceListReader.h"
#include "tests/devicelist/ListGenerator.h"
#include "tests/devicelist/RecordedLists.h"
#include "tests/usbdevices/readList.h"

namespace devicelist {
namespace {

using Source = std::optional<std::size_t>;
using Values = std::array<std::string, 8>;

/// What a block holds, in the order of BlockField.
Values valuesOf(const UsbDevice& device) {
    const topology& place = *device.getTopology();
    const ::Interface& interface = *device.getInterface();
    const product& identifiers = *device.getProduct();
    const deviceInfo& strings = *device.getDeviceInfo();
    return {place.getPort() + place.getSpeed() + place.getBus() + place.getLevel(),
            device.getDescriptor()->getVersion(),
            identifiers.getVendor() + identifiers.getProduct() + identifiers.getRevision(),
            strings.getmanufacturer(),
            strings.getproduct(),
            strings.getserial(),
            device.getConfiguration()->getPower(),
            interface.getInterface() + interface.getClass() + interface.getSubClass() +
                interface.getProtocol() + interface.getDriver()};
}

std::vector<Values> blocksOf(const std::string& text) {
    std::vector<Values> blocks;
    for (const UsbDevice& device : readList(text)) {
        blocks.push_back(valuesOf(device));
    }
    return blocks;
}

/// Changes a value, not its length: the last character of a string, the first of any other field.
void change(std::string& text, std::size_t begin, std::size_t end) {
    const auto toggle = [&](std::size_t at) {
        // A zero byte is where the test stops.
        text[at] = text[at] == '\0' ? '\0' : text[at] == '~' ? '^' : '~';
    };
    if (text[begin] == 'S') {
        if (const auto label = text.find('=', begin); label < end - 1) {
            toggle(end - 1);
        }
        return;
    }
    for (std::size_t at = begin; at + 1 < end; ++at) {
        if (text[at] == '=') {
            toggle(at + 1);
        }
    }
}

/// The list with every value in the lines of a device changed. The first is number 1; 0 means the lines
/// before it.
std::string withChanged(std::string text, const DeviceList& list, std::size_t number) {
    const std::size_t stop =
        number < list.devices.size() ? list.devices[number].offset : text.size();
    for (std::size_t begin = number == 0 ? 0 : list.devices[number - 1].offset; begin < stop;) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        change(text, begin, end);
        begin = end + 1;
    }
    return text;
}

/// "block 3: product of 2": a field of a block, and the device whose lines it comes from.
using Fact = std::string;

Fact fact(std::size_t block, std::size_t field, const std::string& source) {
    return "block " + std::to_string(block) + ": " +
           std::string(nameOf(static_cast<BlockField>(field))) + " of " + source;
}

std::string nameOfSource(Source source) {
    return source.has_value() ? std::to_string(*source) : "none";
}

/// What one has and the other has not.
std::vector<Fact> difference(const std::vector<Fact>& one, const std::vector<Fact>& other) {
    std::vector<Fact> missing;
    std::set_difference(one.begin(), one.end(), other.begin(), other.end(),
                        std::back_inserter(missing));
    return missing;
}

/// What is so of the blocks that are `owned`: what stands in the others is said of no device.
std::vector<Fact> observedFacts(const std::string& text, const DeviceList& list,
                                const std::vector<Values>& blocks,
                                const std::set<std::size_t>& owned) {
    std::vector<Fact> facts;
    for (std::size_t number = 0; number <= list.devices.size(); ++number) {
        const std::string name = number == 0 ? "none" : std::to_string(number - 1);
        const std::vector<Values> changed = blocksOf(withChanged(text, list, number));
        if (changed.size() != blocks.size()) {
            ADD_FAILURE() << "another number of blocks";
            continue;
        }
        for (const std::size_t block : owned) {
            for (std::size_t field = 0; field < blocks[block].size(); ++field) {
                if (blocks[block][field] != changed[block][field]) {
                    facts.push_back(fact(block, field, name));
                }
            }
        }
    }
    std::sort(facts.begin(), facts.end());
    return facts;
}

/// The same from what is said of the report. A field without a value is the same from wherever.
std::vector<Fact> saidFacts(const ReportCoverage& coverage, const std::vector<Values>& blocks) {
    std::vector<Fact> facts;
    for (std::size_t position = 0; position < coverage.devices.size(); ++position) {
        const DeviceCoverage& device = coverage.devices[position];
        if (!device.isInReport()) {
            continue;
        }
        std::array<Source, 8> sources;
        sources.fill(position);
        for (const ForeignFields& foreign : device.foreign) {
            for (const BlockField field : foreign.fields) {
                sources.at(static_cast<std::size_t>(field)) = foreign.source;
            }
        }
        for (std::size_t field = 0; field < sources.size(); ++field) {
            if (!blocks[device.block].at(field).empty()) {
                facts.push_back(fact(device.block, field, nameOfSource(sources.at(field))));
            }
        }
    }
    std::sort(facts.begin(), facts.end());
    return facts;
}

std::set<std::size_t> ownedBlocks(const ReportCoverage& coverage) {
    std::set<std::size_t> blocks;
    for (const DeviceCoverage& device : coverage.devices) {
        if (device.isInReport()) {
            blocks.insert(device.block);
        }
    }
    return blocks;
}

/// Whether a line begins with "T" that begins no device.
bool hasFalseTopology(const std::string& text) {
    return countLines(text, "T") != countLines(text, "T:");
}

void expectTruth(const std::string& text) {
    const DeviceList list = readDeviceList(text);
    const ReportCoverage coverage = reportCoverage(text, list);
    const std::vector<Values> blocks = blocksOf(text);
    ASSERT_EQ(coverage.devices.size(), list.devices.size());
    ASSERT_EQ(coverage.blocks, blocks.size());
    const std::set<std::size_t> owned = ownedBlocks(coverage);
    ASSERT_EQ(owned.size(), coverage.devicesInReport()) << "a block is of one device";
    ASSERT_TRUE(owned.empty() || *owned.rbegin() < blocks.size());
    if (!hasFalseTopology(text)) {
        EXPECT_EQ(owned.size(), blocks.size());
    }
    const std::vector<Fact> said = saidFacts(coverage, blocks);
    const std::vector<Fact> observed = observedFacts(text, list, blocks, owned);
    EXPECT_EQ(difference(said, observed), std::vector<Fact>{}) << "said, but not so";
    EXPECT_EQ(difference(observed, said), std::vector<Fact>{}) << "so, but not said";
}

ReportCoverage coverageOf(const std::string& text) {
    return reportCoverage(text, readDeviceList(text));
}

/// What is said of each device: its reason, or "" if the report has it.
std::vector<std::string> reasonsOf(const std::string& text) {
    expectTruth(text);
    std::vector<std::string> reasons;
    for (const DeviceCoverage& device : coverageOf(text).devices) {
        reasons.emplace_back(device.leftOut ? nameOf(*device.leftOut) : "");
    }
    return reasons;
}

using Reasons = std::vector<std::string>;

const std::string top = "T:  Bus=01 Lev=00 Prnt=00 Port=00 Cnt=00 Dev#=  1 Spd=12  MxCh= 2\n";
const std::string ids = "P:  Vendor=0461 ProdID=4d15 Rev= 2.00\n";
const std::string configuration = "C:* #Ifs= 1 Cfg#= 1 Atr=a0 MxPwr=100mA\n";
const std::string interface =
    "I:  If#= 0 Alt= 0 #EPs= 1 Cls=03(HID  ) Sub=01 Prot=02 Driver=usbhid\n";
const std::string endpoint = "E:  Ad=81(I) Atr=03(Int.) MxPS=   4 Ivl=10ms\n";

std::string named(const std::string& name) {
    return "S:  Product=" + name + "\n";
}

std::string whole(const std::string& name) {
    return top + ids + named(name) + configuration + interface + endpoint;
}

TEST(ReportCoverage, AWholeListIsInTheReport) {
    EXPECT_EQ(reasonsOf(whole("a") + whole("b")), (Reasons{"", ""}));
    EXPECT_EQ(reasonsOf(""), Reasons{});
    EXPECT_EQ(reasonsOf("\n"), Reasons{});
    EXPECT_EQ(reasonsOf("\n\n"), Reasons{});
}

TEST(ReportCoverage, AListThatBeginsWithAnEmptyLineLosesItsLastLine) {
    EXPECT_EQ(reasonsOf("\n" + whole("a") + "\n" + whole("b")), (Reasons{"", "last_line"}));
    EXPECT_EQ(reasonsOf("\n" + whole("a")), Reasons{"last_line"});
    EXPECT_EQ(reasonsOf("\n" + whole("a") + endpoint), Reasons{""});
    EXPECT_EQ(reasonsOf("\n" + whole("a") + "\n"), Reasons{""});
    EXPECT_EQ(reasonsOf("\n" + whole("a") + "S:"), Reasons{"last_line"});
}

TEST(ReportCoverage, ALineWithoutLineFeedIsNotRead) {
    std::string list = whole("a") + whole("b");
    list.pop_back();
    EXPECT_EQ(reasonsOf(list), (Reasons{"", "unfinished_line"}));
    EXPECT_EQ(reasonsOf("\n" + list), (Reasons{"", "unfinished_line"}));
}

TEST(ReportCoverage, TheTestReads8192Bytes) {
    const std::string last = whole("z");
    for (const std::size_t size : {testReadSize - 1, testReadSize, testReadSize + 1}) {
        const std::string filler = "#" + std::string(size - last.size() - 2, '.') + "\n";
        ASSERT_EQ((filler + last).size(), size);
        EXPECT_EQ(reasonsOf(filler + last), Reasons{size <= testReadSize ? "" : "beyond_read_size"})
            << size;
        EXPECT_EQ(reasonsOf(filler + last + whole("y")),
                  (Reasons{size <= testReadSize ? "" : "beyond_read_size", "beyond_read_size"}));
    }
}

TEST(ReportCoverage, TheLastLineOfTheFirst8192BytesIsTheLastOneRead) {
    const std::string last = whole("z");
    const std::string filler = "\n#" + std::string(testReadSize - last.size() - 3, '.') + "\n";
    EXPECT_EQ(reasonsOf(filler + last), Reasons{"last_line"});
    EXPECT_EQ(reasonsOf(filler + last + whole("y")), (Reasons{"last_line", "beyond_read_size"}));
    EXPECT_EQ(reasonsOf("\n#\n" + filler + last), Reasons{"beyond_read_size"});
}

TEST(ReportCoverage, AnUnfinishedLineOf8192BytesIsUnfinished) {
    std::string last = whole("z");
    last.pop_back();
    const std::string filler = "#" + std::string(testReadSize - last.size() - 2, '.') + "\n";
    EXPECT_EQ(reasonsOf(filler + last), Reasons{"unfinished_line"});
    EXPECT_EQ(reasonsOf("." + filler + last), Reasons{"beyond_read_size"});
}

TEST(ReportCoverage, AZeroByteEndsTheText) {
    const std::string zero(1, '\0');
    EXPECT_EQ(reasonsOf(whole("a") + zero + "\n" + whole("b")), (Reasons{"", "after_zero_byte"}));
    EXPECT_EQ(reasonsOf(whole("a") + whole("b" + zero)), (Reasons{"", "after_zero_byte"}));
    EXPECT_EQ(reasonsOf("\n" + whole("a") + "S:" + zero), Reasons{"last_line"});
    const std::string last = whole("z");
    const std::string filler = "#" + std::string(testReadSize - 1 - last.size(), '.') + "\n";
    EXPECT_EQ(reasonsOf(filler + last + zero), Reasons{"beyond_read_size"})
        << "at the first byte that is not read";
}

TEST(ReportCoverage, ADeviceWithoutEndpointLendsItsFields) {
    const std::string list = top + named("a") + configuration + interface + top + ids + endpoint;
    EXPECT_EQ(reasonsOf(list), (Reasons{"no_endpoint", ""}));
    const ReportCoverage coverage = coverageOf(list);
    EXPECT_EQ(coverage.devices[1].foreign,
              (std::vector<ForeignFields>{
                  {0U, {BlockField::product, BlockField::power, BlockField::interface}}}));
    EXPECT_EQ(coverage.devices[0].lentTo, std::vector<std::size_t>{1});
    EXPECT_TRUE(coverage.devices[1].lentTo.empty());
}

TEST(ReportCoverage, ADeviceWithoutEndpointThatLendsNothing) {
    const std::string list = top + named("a") + whole("b") + top;
    EXPECT_EQ(reasonsOf(list), (Reasons{"no_endpoint", "", "no_endpoint"}));
    EXPECT_TRUE(coverageOf(list).devices[0].lentTo.empty());
    EXPECT_TRUE(coverageOf(list).devices[1].foreign.empty());
}

TEST(ReportCoverage, LaterInterfacesStandInTheNextBlockIfThatHasNone) {
    const std::string list = whole("a") + interface + endpoint + top + ids + endpoint + top +
                             configuration + interface + endpoint;
    EXPECT_EQ(reasonsOf(list), (Reasons{"", "", ""}));
    const ReportCoverage coverage = coverageOf(list);
    EXPECT_EQ(coverage.devices[0].lentTo, std::vector<std::size_t>{1});
    EXPECT_EQ(coverage.devices[1].foreign,
              (std::vector<ForeignFields>{{0U, {BlockField::interface}}}));
    EXPECT_TRUE(coverage.devices[2].foreign.empty());
}

TEST(ReportCoverage, LinesBeforeTheFirstDeviceAreNoDevices) {
    const std::string list = named("nobody") + endpoint + top + endpoint;
    EXPECT_EQ(reasonsOf(list), Reasons{""});
    EXPECT_EQ(coverageOf(list).devices[0].foreign,
              (std::vector<ForeignFields>{{std::nullopt, {BlockField::product}}}));
}

TEST(ReportCoverage, AStringThatNamesAnotherFillsBoth) {
    EXPECT_EQ(reasonsOf(top + "S:  Manufacturer=Product Company\n" + top + endpoint),
              (Reasons{"no_endpoint", ""}));
    const ReportCoverage coverage =
        coverageOf(top + "S:  Manufacturer=Product Company\n" + top + endpoint);
    EXPECT_EQ(coverage.devices[1].foreign,
              (std::vector<ForeignFields>{{0U, {BlockField::manufacturer, BlockField::product}}}));
}

TEST(ReportCoverage, AFalseTopologyLineMakesABlockOfNoDevice) {
    const std::string list = "Ttt\n" + endpoint + whole("a") + "Tt\n" + endpoint;
    EXPECT_EQ(reasonsOf(list), Reasons{""});
    EXPECT_EQ(coverageOf(list).blocks, 3U);
    EXPECT_EQ(coverageOf(list).devices[0].block, 1U);
    EXPECT_EQ(coverageOf(list).devicesInReport(), 1U);
}

/// Line ends, a first empty line, a cut, a zero byte, a missing, a doubled and a forged line.
std::string damaged(std::string text, std::mt19937& random) {
    const auto below = [&](std::size_t limit) { return limit == 0 ? 0 : random() % limit; };
    const auto lineAt = [&](std::size_t at) { return at == 0 ? 0 : text.rfind('\n', at - 1) + 1; };
    const std::size_t at = below(text.size());
    const std::size_t line = lineAt(at);
    const std::size_t length = std::min(text.find('\n', line), text.size() - 1) + 1 - line;
    switch (below(8)) {
        case 0:
            return "\n" + text;
        case 1:
            return text.substr(0, at);
        case 2:
            return text.insert(at, 1, '\0');
        case 3:
            return text.erase(line, length);
        case 4:
            return text.insert(line, text.substr(line, length));
        case 5:
            return text.insert(at, 1, '\n');
        case 6:
            return text.insert(line, "Tt  Port=0\n");
        default:
            return text.insert(line, "S:  Product=" + std::string(below(9000), 'x') + "\n");
    }
}

void expectTruthOfFolder(const std::string& folder) {
    std::mt19937 random(20261122);
    for (const RecordedList& list : recordedLists(folder)) {
        SCOPED_TRACE(list.name);
        expectTruth(list.text);
        for (int round = 0; round < 40 && !list.text.empty(); ++round) {
            const std::string text = damaged(damaged(list.text, random), random);
            SCOPED_TRACE(text);
            expectTruth(text);
            if (testing::Test::HasFailure()) {
                return;
            }
        }
    }
}

TEST(ReportCoverage, IsTrueOfTheSamples) {
    expectTruthOfFolder(ZORVA_SAMPLES);
}

TEST(ReportCoverage, IsTrueOfTheCaptures) {
    if (!std::filesystem::exists(ZORVA_CAPTURES)) {
        GTEST_SKIP() << "there are none at " << ZORVA_CAPTURES;
    }
    expectTruthOfFolder(ZORVA_CAPTURES);
}

TEST(ReportCoverage, IsTrueOfGeneratedLists) {
    for (const KernelForm& form : kernelForms()) {
        for (std::uint32_t seed = 1; seed <= 60; ++seed) {
            SCOPED_TRACE(form.name + std::string(" ") + std::to_string(seed));
            expectTruth(ListGenerator(seed, form).text());
            if (HasFailure()) {
                return;
            }
        }
    }
}

}  // namespace
}  // namespace devicelist
