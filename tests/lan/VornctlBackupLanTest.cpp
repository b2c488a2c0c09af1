// SPDX-License-Identifier: Apache-2.0
// vornctl backup and restore run for real against vorn-sim on a private LAN.
#include <nlohmann/json.hpp>

#include "BackupFile.h"
#include "VornctlTestCase.h"

namespace {

constexpr const char* kUnits = R"([
  {"ip": "10.232.1.1",
   "config": {"Serial": "KT-AAA111", "Version": "2.1.4", "IPAddress": "10.232.1.1", "Channel": "3",
              "TallyType": "2", "CallMagic": "1234"}},
  {"ip": "10.232.1.2", "config": {"Serial": "KT-BBB222", "IPAddress": "10.232.1.2", "Channel": "12"}}
])";

class VornctlBackupOnLan : public VornctlTestCase {
protected:
    LanTest::Simulator units(const std::string& json = kUnits, std::vector<std::string> faults = {}) const
    {
        std::vector<std::string> arguments{"--units", unitsFile(json)};
        arguments.insert(arguments.end(), faults.begin(), faults.end());
        return LanTest::Simulator(lan(), arguments, dir());
    }

    static Settings::Backup read(const std::string& text)
    {
        auto backup = Settings::readBackup(text);
        if (auto* error = std::get_if<Settings::BackupError>(&backup))
            throw std::runtime_error(Settings::english(error->message));
        return std::get<Settings::Backup>(std::move(backup));
    }

    // A backup of one unit, as vornctl would have written it.
    std::string backupOf(const std::string& serial, const std::string& address, const Vorn::Config& config) const
    {
        return textFile(Settings::writeBackup({"2026-11-23T00:00:00Z", {{serial, address, "", config}}}),
                        "backup.json");
    }
};

// --- backup ---------------------------------------------------------------

TEST_F(VornctlBackupOnLan, BackupWritesEveryAnsweringUnitAsReported)
{
    auto sim = units();
    const auto file = (dir() / "all.json").string();

    const auto run = vornctl({"backup", "-o", file, "--timeout", "1"});

    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "");
    std::ifstream in(file);
    const auto backup = read({std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()});
    ASSERT_EQ(backup.units.size(), 2u);
    EXPECT_EQ(backup.units[0].address, "10.232.1.1");
    EXPECT_EQ(backup.units[0].serial, "KT-AAA111");
    EXPECT_EQ(backup.units[0].firmware, "2.1.4");
    EXPECT_EQ(backup.units[0].config,
              (Vorn::Config{{"Serial", "KT-AAA111"}, {"Version", "2.1.4"}, {"IPAddress", "10.232.1.1"},
                            {"Channel", "3"}, {"TallyType", "2"}, {"CallMagic", "1234"}}));
    EXPECT_EQ(backup.units[1].address, "10.232.1.2");
    EXPECT_EQ(backup.taken.size(), 20u) << backup.taken;
}

TEST_F(VornctlBackupOnLan, BackupOfListedUnitsGoesToStandardOutput)
{
    auto sim = units();

    const auto run = vornctl({"backup", "10.232.1.2"});

    ASSERT_EQ(run.status, 0) << run.err;
    const auto backup = read(run.out);
    ASSERT_EQ(backup.units.size(), 1u);
    EXPECT_EQ(backup.units[0].serial, "KT-BBB222");
}

TEST_F(VornctlBackupOnLan, BackupOfAListedUnitThatNeverAnswersExits4AndWritesNothing)
{
    auto sim = units(kUnits, {"--silent", "10.232.1.1"});
    const auto file = dir() / "partial.json";

    const auto toFile = vornctl({"backup", "10.232.1.1", "10.232.1.2", "-o", file.string(), "--timeout", "0.6"});
    const auto toOutput = vornctl({"backup", "10.232.1.1", "--timeout", "0.6"});

    EXPECT_EQ(toFile.status, 4);
    EXPECT_EQ(toFile.err,
              "vornctl: 10.232.1.1 did not answer\nvornctl: not every unit answered; nothing written\n");
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(toOutput.status, 4);
    EXPECT_EQ(toOutput.out, "");
    EXPECT_EQ(toOutput.err, "vornctl: 10.232.1.1 did not answer\nvornctl: no unit answered; nothing written\n");
}

TEST_F(VornctlBackupOnLan, BackupWhenNoUnitAnswersExits4AndWritesNothing)
{
    auto sim = units(kUnits, {"--silent", "10.232.1.1", "--silent", "10.232.1.2"});
    const auto file = dir() / "empty.json";

    const auto run = vornctl({"backup", "-o", file.string(), "--timeout", "0.6"});

    EXPECT_EQ(run.status, 4);
    EXPECT_EQ(run.err, "vornctl: no unit answered; nothing written\n");
    EXPECT_FALSE(std::filesystem::exists(file));
}

// --- restore --------------------------------------------------------------

TEST_F(VornctlBackupOnLan, RestoreDryRunPrintsTheDifferencesAndSendsNoWrite)
{
    auto sim = units();
    const auto file = backupOf("KT-AAA111", "10.232.1.1",
                               {{"Serial", "KT-AAA111"}, {"Channel", "9"}, {"TallyType", "2"}, {"CallMagic", ""}});

    const auto run = vornctl({"restore", file, "--dry-run", "--timeout", "1"});

    EXPECT_EQ(run.out,
              "10.232.1.1 (serial KT-AAA111): 2 key(s) differ\n"
              "  Channel: 3 \u2192 9\n"
              "  CallMagic: 1234 \u2192 \n");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(withCommand(sim.stopAndReadLog(), kWrite).empty());
}

TEST_F(VornctlBackupOnLan, RestoreWritesOnlyTheEditableKeysThatDifferAndVerifies)
{
    auto sim = units();
    const auto file = backupOf("KT-AAA111", "10.232.1.1",
                               {{"Serial", "KT-AAA111"}, {"Channel", "9"}, {"TallyType", "2"}, {"Version", "9.9"},
                                {"ManagerIp", "10.0.0.1"}});

    const auto run = vornctl({"restore", file, "--timeout", "1"});

    EXPECT_EQ(run.out, "10.232.1.1 (serial KT-AAA111): 1 key(s) differ\n  Channel: 3 \u2192 9\n  verified\n");
    EXPECT_EQ(run.status, 0) << run.err;
    const auto writes = withCommand(sim.stopAndReadLog(), kWrite);
    ASSERT_EQ(writes.size(), 2u);
    EXPECT_EQ(bodyOf(writes[0]), "IPAddress:10.232.1.1\nChannel:9\nCallMagic:1234\nTallyType:2\nSerial:KT-AAA111\n");
}

TEST_F(VornctlBackupOnLan, RestoreFindsAUnitBySerialAfterItChangedAddress)
{
    // The unit of the backup now answers as 10.232.1.7.
    auto sim = units(R"([{"ip": "10.232.1.7", "config": {"Serial": "KT-AAA111", "Channel": "3"}}])");
    const auto file = backupOf("KT-AAA111", "10.232.1.1", {{"Serial", "KT-AAA111"}, {"Channel", "9"}});

    const auto run = vornctl({"restore", file, "--timeout", "1"});

    EXPECT_EQ(run.out,
              "10.232.1.1 (serial KT-AAA111) now at 10.232.1.7: 1 key(s) differ\n  Channel: 3 \u2192 9\n  verified\n");
    EXPECT_EQ(run.status, 0) << run.err;
    const auto writes = withCommand(sim.stopAndReadLog(), kWrite);
    ASSERT_EQ(writes.size(), 2u);
    EXPECT_EQ(writes[0].dst, "10.232.1.7");
}

// The window's "Export all units" wrote this file (its QML test holds it to that).
TEST_F(VornctlBackupOnLan, RestoreReadsAFileTheWindowExported)
{
    auto sim = units();

    const auto run = vornctl({"restore", VORN_WINDOW_EXPORT, "--timeout", "1"});

    EXPECT_EQ(run.out, "10.232.1.1 (serial KT-AAA111): 1 key(s) differ\n  Channel: 3 \u2192 9\n  verified\n");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(withCommand(sim.stopAndReadLog(), kWrite).size(), 2u);
}

TEST_F(VornctlBackupOnLan, RestoreMatchesByAddressWhenTheFileHasNoSerial)
{
    auto sim = units();
    const auto file = backupOf("", "10.232.1.2", {{"Channel", "12"}});

    const auto run = vornctl({"restore", file, "--timeout", "1"});

    EXPECT_EQ(run.out, "10.232.1.2: equal\n");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(withCommand(sim.stopAndReadLog(), kWrite).empty());
}

// The file's unit KT-OLD999 is gone; KT-AAA111 answers at its address.
TEST_F(VornctlBackupOnLan, RestoreNeverCrossesSerialsWithoutAllowOtherSerial)
{
    auto sim = units();
    const auto file = backupOf("KT-OLD999", "10.232.1.1", {{"Serial", "KT-OLD999"}, {"Channel", "9"}});
    const std::string listed = "10.232.1.1 (serial KT-OLD999): another unit answers at 10.232.1.1 (serial "
                               "KT-AAA111); 1 key(s) differ\n  Channel: 3 \u2192 9\n"
                               "  not restored: another unit; add --allow-other-serial to restore onto it\n";

    const auto dryRun = vornctl({"restore", file, "--dry-run", "--timeout", "1"});
    const auto refused = vornctl({"restore", file, "--yes", "--timeout", "1"});

    EXPECT_EQ(dryRun.out, listed);
    EXPECT_EQ(dryRun.status, 4) << dryRun.err;
    EXPECT_EQ(refused.out, listed);
    EXPECT_EQ(refused.status, 4) << refused.err;
    EXPECT_TRUE(withCommand(sim.stopAndReadLog(), kWrite).empty());
}

TEST_F(VornctlBackupOnLan, RestoreOntoAnotherSerialOnlyWithAllowOtherSerial)
{
    auto sim = units();
    const auto file = backupOf("KT-OLD999", "10.232.1.1", {{"Serial", "KT-OLD999"}, {"Channel", "9"}});

    const auto dryRun = vornctl({"restore", file, "--allow-other-serial", "--dry-run", "--timeout", "1"});
    const auto run = vornctl({"restore", file, "--allow-other-serial", "--timeout", "1"});

    EXPECT_EQ(dryRun.out, "10.232.1.1 (serial KT-OLD999): another unit answers at 10.232.1.1 (serial KT-AAA111); "
                          "1 key(s) differ\n  Channel: 3 \u2192 9\n");
    EXPECT_EQ(dryRun.status, 0) << dryRun.err;
    EXPECT_EQ(run.out, "10.232.1.1 (serial KT-OLD999): another unit answers at 10.232.1.1 (serial KT-AAA111); "
                       "1 key(s) differ\n  Channel: 3 \u2192 9\n  verified\n");
    EXPECT_EQ(run.status, 0) << run.err;
    const auto writes = withCommand(sim.stopAndReadLog(), kWrite);
    ASSERT_EQ(writes.size(), 2u);
    EXPECT_EQ(writes[0].dst, "10.232.1.1");
    // The unit keeps its own serial: Serial is no key a restore writes.
    EXPECT_NE(bodyOf(writes[0]).find("Serial:KT-AAA111\n"), std::string::npos) << bodyOf(writes[0]);
}

TEST_F(VornctlBackupOnLan, RestoreLeavesNetworkKeysAloneWithoutNetworkAndYes)
{
    auto sim = units();
    const auto file = backupOf("KT-BBB222", "10.232.1.2", {{"IPAddress", "10.232.1.60"}, {"Channel", "12"}});

    const auto run = vornctl({"restore", file, "--timeout", "1"});

    EXPECT_EQ(run.out,
              "10.232.1.2 (serial KT-BBB222): equal\n"
              "  IPAddress: 10.232.1.2 \u2192 10.232.1.60 (network: needs --network --yes)\n");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_TRUE(withCommand(sim.stopAndReadLog(), kWrite).empty());
}

TEST_F(VornctlBackupOnLan, RestoreWithNetworkAndYesMovesTheUnitAndVerifiesAtTheNewAddress)
{
    auto sim = units();
    const auto file = backupOf("KT-BBB222", "10.232.1.2", {{"IPAddress", "10.232.1.60"}, {"Channel", "12"}});

    const auto run = vornctl({"restore", file, "--network", "--yes", "--timeout", "1"});

    EXPECT_EQ(run.out,
              "10.232.1.2 (serial KT-BBB222): 1 key(s) differ\n  IPAddress: 10.232.1.2 \u2192 10.232.1.60\n  verified\n");
    EXPECT_EQ(run.status, 0) << run.err;
}

TEST_F(VornctlBackupOnLan, RestoreNetworkWithoutYesIsBadUsage)
{
    const auto file = backupOf("KT-BBB222", "10.232.1.2", {{"Channel", "12"}});

    const auto run = vornctl({"restore", file, "--network"});

    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(isOneLine(run.err)) << run.err;
}

TEST_F(VornctlBackupOnLan, RestoreToAUnitIgnoringWritesExits5)
{
    auto sim = units(kUnits, {"--ignore-writes", "10.232.1.1"});
    const auto file = backupOf("KT-AAA111", "10.232.1.1", {{"Channel", "9"}});

    const auto run = vornctl({"restore", file, "--timeout", "1"});

    EXPECT_EQ(run.out,
              "10.232.1.1 (serial KT-AAA111): 1 key(s) differ\n  Channel: 3 \u2192 9\n  Channel: wrote 9, unit reports 3\n");
    EXPECT_EQ(run.status, 5) << run.err;
}

TEST_F(VornctlBackupOnLan, RestoreWhenAUnitOfTheFileNeverAnswersExits4)
{
    auto sim = units(kUnits, {"--silent", "10.232.1.1"});
    const auto file = backupOf("KT-AAA111", "10.232.1.1", {{"Channel", "9"}});

    const auto run = vornctl({"restore", file, "--timeout", "1"});

    EXPECT_EQ(run.out, "10.232.1.1 (serial KT-AAA111): did not answer\n");
    EXPECT_EQ(run.status, 4) << run.err;
}

TEST_F(VornctlBackupOnLan, RestoreOfAMalformedFileNamesTheProblemAndSendsNothing)
{
    auto sim = units();
    const auto file = textFile(R"({"format": "vornlink-backup", "version": 1, "taken": "t",
        "units": [{"serial": "", "address": "10.232.1.1", "firmware": "", "config": {"CallMagic": "x\nIPAddress:10.9.9.9"}}]})",
                               "hostile.json");

    const auto run = vornctl({"restore", file});

    EXPECT_EQ(run.err, "vornctl: " + file +
                           ": unit 0, key \"CallMagic\": the value of CallMagic holds a line feed (LF)\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(sim.stopAndReadLog().empty());
}

TEST_F(VornctlBackupOnLan, RestoreOfAMissingFileExits1)
{
    const auto run = vornctl({"restore", (dir() / "nothing.json").string()});

    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("cannot be read"), std::string::npos) << run.err;
}

TEST_F(VornctlBackupOnLan, BackupThenRestoreDryRunOfTheSameUnitsIsEqual)
{
    auto sim = units();
    const auto file = (dir() / "roundtrip.json").string();
    ASSERT_EQ(vornctl({"backup", "-o", file, "--timeout", "1"}).status, 0);

    const auto run = vornctl({"restore", file, "--dry-run", "--timeout", "1"});

    EXPECT_EQ(run.out, "10.232.1.1 (serial KT-AAA111): equal\n10.232.1.2 (serial KT-BBB222): equal\n");
    EXPECT_EQ(run.status, 0) << run.err;
}

}  // namespace
