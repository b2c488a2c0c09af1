// SPDX-License-Identifier: Apache-2.0
#include "Options.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

namespace VornSim {
namespace {

Result<Options> parse(std::initializer_list<std::string_view> args)
{
    const std::vector<std::string_view> list(args);
    return parseOptions(list);
}

Options parsed(std::initializer_list<std::string_view> args)
{
    auto result = parse(args);
    if (const auto* error = std::get_if<Error>(&result))
        ADD_FAILURE() << "unexpected error: " << error->message;
    return std::get<Options>(result);
}

std::string errorOf(std::initializer_list<std::string_view> args)
{
    auto result = parse(args);
    const auto* error = std::get_if<Error>(&result);
    return error ? error->message : "(no error)";
}

TEST(Options, NoArgumentsGiveTheDefaults)
{
    const auto options = parsed({});
    EXPECT_FALSE(options.help);
    EXPECT_EQ(options.port, 23457);
    EXPECT_EQ(options.bindAddress, "0.0.0.0");
    EXPECT_EQ(options.logPath, "");
    EXPECT_EQ(options.readyFile, "");
    EXPECT_EQ(options.count, 3);
    EXPECT_EQ(options.firstIp, "10.232.1.1");
    EXPECT_EQ(options.seed, 1u);
    EXPECT_EQ(options.unitsFile, "");
    EXPECT_TRUE(options.faults.empty());
}

TEST(Options, EveryValueOptionIsRead)
{
    const auto options = parsed({"--port", "40001", "--bind", "127.0.0.2", "--log", "-", "--ready-file", "/tmp/r",
                                 "--count", "5000", "--first-ip", "10.1.2.3", "--seed", "42"});
    EXPECT_EQ(options.port, 40001);
    EXPECT_EQ(options.bindAddress, "127.0.0.2");
    EXPECT_EQ(options.logPath, "-");
    EXPECT_EQ(options.readyFile, "/tmp/r");
    EXPECT_EQ(options.count, 5000);
    EXPECT_EQ(options.firstIp, "10.1.2.3");
    EXPECT_EQ(options.seed, 42u);
}

TEST(Options, ValueMayFollowAnEqualsSign)
{
    const auto options = parsed({"--port=40002", "--units=units.json", "--drop=all=0.5"});
    EXPECT_EQ(options.port, 40002);
    EXPECT_EQ(options.unitsFile, "units.json");
    ASSERT_EQ(options.faults.size(), 1u);
    EXPECT_EQ(options.faults[0].unit, "all");
    EXPECT_EQ(options.faults[0].overrides.drop, 0.5);
}

TEST(Options, HelpIsRecognisedInBothSpellings)
{
    EXPECT_TRUE(parsed({"--help"}).help);
    EXPECT_TRUE(parsed({"-h"}).help);
}

TEST(Options, ExtraUnitsAreCollectedInOrderWithOrWithoutASerial)
{
    const auto options = parsed({"--unit", "192.168.0.50", "--unit=10.232.1.1=KT4-DUPL01"});
    EXPECT_EQ(options.extraUnits,
              (std::vector<ExtraUnit>{{"192.168.0.50", ""}, {"10.232.1.1", "KT4-DUPL01"}}));
}

TEST(Options, ExtraUnitNeedsAnAddressAndANonEmptySerial)
{
    EXPECT_EQ(errorOf({"--unit", "studio-unit"}),
              "invalid value 'studio-unit' for --unit (expected an IPv4 address like 10.232.1.1)");
    EXPECT_EQ(errorOf({"--unit", "10.232.1.1="}),
              "invalid value '10.232.1.1=' for --unit (expected ADDR or ADDR=SERIAL)");
}

TEST(Options, FaultOptionsAreCollectedInOrder)
{
    const auto options = parsed({"--report-ip", "10.232.1.1=10.0.0.99", "--cmd", "all=0xA1", "--cmd", "10.232.1.2=161",
                                 "--silent", "10.232.1.3", "--drop", "10.232.1.1=0.25", "--delay", "all=200"});
    ASSERT_EQ(options.faults.size(), 6u);
    EXPECT_EQ(options.faults[0], (FaultOption{"10.232.1.1", {.reportIp = "10.0.0.99"}}));
    EXPECT_EQ(options.faults[1], (FaultOption{"all", {.cmd = 0xA1}}));
    EXPECT_EQ(options.faults[2], (FaultOption{"10.232.1.2", {.cmd = 161}}));
    EXPECT_EQ(options.faults[3], (FaultOption{"10.232.1.3", {.silent = true}}));
    EXPECT_EQ(options.faults[4], (FaultOption{"10.232.1.1", {.drop = 0.25}}));
    EXPECT_EQ(options.faults[5], (FaultOption{"all", {.delay = std::chrono::milliseconds(200)}}));
}

TEST(Options, WriteFaultsAreRead)
{
    const auto options = parsed({"--ignore-writes", "10.232.1.1", "--keep-key", "all=Channel"});
    ASSERT_EQ(options.faults.size(), 2u);
    EXPECT_EQ(options.faults[0], (FaultOption{"10.232.1.1", {.ignoreWrites = true}}));
    EXPECT_EQ(options.faults[1], (FaultOption{"all", {.keepKey = "Channel"}}));
    EXPECT_EQ(errorOf({"--keep-key", "all="}), "invalid value '' for --keep-key (expected a configuration key like Channel)");
}

TEST(Options, UnitAddressesAreTakenInTheirPlainForm)
{
    const auto options = parsed({"--silent", "010.232.1.001", "--first-ip", "+10.232.1.1"});
    EXPECT_EQ(options.faults.at(0).unit, "10.232.1.1");
    EXPECT_EQ(options.firstIp, "10.232.1.1");
}

TEST(Options, UnknownOptionIsNamed)
{
    EXPECT_EQ(errorOf({"--frobnicate"}), "unknown option '--frobnicate'");
}

TEST(Options, StrayArgumentIsNamed)
{
    EXPECT_EQ(errorOf({"units.json"}), "unexpected argument 'units.json'");
}

TEST(Options, OptionWithoutValueIsRejected)
{
    EXPECT_EQ(errorOf({"--port"}), "option --port needs a value");
    EXPECT_EQ(errorOf({"--log="}), "option --log needs a non-empty value");
}

TEST(Options, PortOutsideOneTo65535IsRejected)
{
    EXPECT_EQ(errorOf({"--port", "0"}), "invalid value '0' for --port (expected a port 1..65535)");
    EXPECT_NE(errorOf({"--port", "65536"}), "(no error)");
    EXPECT_NE(errorOf({"--port", "http"}), "(no error)");
}

TEST(Options, MalformedAddressesAreRejected)
{
    EXPECT_EQ(errorOf({"--bind", "127.0.0"}),
              "invalid value '127.0.0' for --bind (expected an IPv4 address like 10.232.1.1)");
    EXPECT_NE(errorOf({"--first-ip", "10.232.1.256"}), "(no error)");
    EXPECT_NE(errorOf({"--report-ip", "all=10.0.0"}), "(no error)");
}

TEST(Options, CountMustBeAPositiveNumberWithinTheLimit)
{
    EXPECT_NE(errorOf({"--count", "0"}), "(no error)");
    EXPECT_NE(errorOf({"--count", "-3"}), "(no error)");
    EXPECT_NE(errorOf({"--count", "1000001"}), "(no error)");
    EXPECT_NE(errorOf({"--count", "ten"}), "(no error)");
}

TEST(Options, SeedMustBeANonNegativeNumber)
{
    EXPECT_NE(errorOf({"--seed", "-1"}), "(no error)");
    EXPECT_NE(errorOf({"--seed", "1.5"}), "(no error)");
}

TEST(Options, FaultWithoutUnitAndValueIsRejected)
{
    EXPECT_EQ(errorOf({"--drop", "0.5"}), "option --drop needs UNIT=VALUE, got '0.5'");
}

TEST(Options, FaultUnitMustBeAnAddressOrAll)
{
    EXPECT_EQ(errorOf({"--delay", "unit1=100"}), "invalid value 'unit1' for --delay (expected a unit's address or 'all')");
    EXPECT_NE(errorOf({"--silent", "everyone"}), "(no error)");
}

TEST(Options, FractionOutsideZeroToOneIsRejected)
{
    EXPECT_EQ(errorOf({"--drop", "all=1.5"}), "invalid value '1.5' for --drop (expected a fraction 0..1)");
    EXPECT_NE(errorOf({"--drop", "all=-0.1"}), "(no error)");
    EXPECT_NE(errorOf({"--drop", "all=half"}), "(no error)");
}

TEST(Options, BadCommandCodeAndDelayAreRejected)
{
    EXPECT_NE(errorOf({"--cmd", "all=256"}), "(no error)");
    EXPECT_NE(errorOf({"--cmd", "all=0xG1"}), "(no error)");
    EXPECT_NE(errorOf({"--delay", "all=-5"}), "(no error)");
    EXPECT_NE(errorOf({"--delay", "all=3600001"}), "(no error)");
}

TEST(Options, UnitsFileExcludesAGeneratedRange)
{
    EXPECT_EQ(errorOf({"--units", "u.json", "--count", "4"}), "--units cannot be combined with --count or --first-ip");
    EXPECT_EQ(errorOf({"--first-ip", "10.0.0.1", "--units", "u.json"}),
              "--units cannot be combined with --count or --first-ip");
}

TEST(Options, UsageTextShowsEveryOptionAndAnExample)
{
    const auto usage = usageText();
    for (const char* option : {"--port", "--bind", "--log", "--ready-file", "--count", "--first-ip", "--seed", "--units",
                               "--report-ip", "--cmd", "--silent", "--drop", "--delay", "--help", "Example"})
        EXPECT_NE(usage.find(option), std::string::npos) << option;
}

}  // namespace
}  // namespace VornSim
