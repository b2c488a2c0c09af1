// SPDX-License-Identifier: Apache-2.0
#include "BackupFile.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

namespace Settings {
namespace {

using namespace std::string_literals;

Backup sampleBackup()
{
    return {"2026-11-23T01:02:03Z",
            {backupUnitOf("10.77.1.10", {{"Serial", "KT-0001"}, {"Version", "2.1.4"}, {"Channel", "3"}, {"Note", "\u00E4 \u2713"}, {"CallMagic", ""}}),
             backupUnitOf("10.77.1.11", {{"Channel", "7"}})}};
}

std::string errorOf(const std::string& text)
{
    const auto read = readBackup(text);
    if (const auto* error = std::get_if<BackupError>(&read))
        return english(error->message);
    return "(read without error)";
}

std::string withUnit(const std::string& unit)
{
    return R"({"format": "vornlink-backup", "version": 1, "taken": "t", "units": [)" + unit + "]}";
}

TEST(BackupFile, UnitTakesSerialAndFirmwareFromItsConfiguration)
{
    const auto unit = backupUnitOf("10.0.0.1", {{"Serial", "S1"}, {"Version", "1.0"}});
    EXPECT_EQ(unit.serial, "S1");
    EXPECT_EQ(unit.firmware, "1.0");
    EXPECT_EQ(unit.address, "10.0.0.1");
    EXPECT_EQ(backupUnitOf("10.0.0.2", {}).serial, "");
}

TEST(BackupFile, WrittenFileHasTheDocumentedShape)
{
    const std::string text = writeBackup({"2026-11-23T01:02:03Z", {backupUnitOf("10.77.1.10", {{"Channel", "3"}})}});
    EXPECT_EQ(text,
              "{\n"
              "  \"format\": \"vornlink-backup\",\n"
              "  \"version\": 1,\n"
              "  \"taken\": \"2026-11-23T01:02:03Z\",\n"
              "  \"units\": [\n"
              "    {\n"
              "      \"serial\": \"\",\n"
              "      \"address\": \"10.77.1.10\",\n"
              "      \"firmware\": \"\",\n"
              "      \"config\": {\n"
              "        \"Channel\": \"3\"\n"
              "      }\n"
              "    }\n"
              "  ]\n"
              "}\n");
}

TEST(BackupFile, WriteThenReadGivesTheSameBackup)
{
    const Backup backup = sampleBackup();
    const auto read = readBackup(writeBackup(backup));
    ASSERT_TRUE(std::holds_alternative<Backup>(read)) << english(std::get<BackupError>(read).message);
    EXPECT_EQ(std::get<Backup>(read), backup);
}

TEST(BackupFile, EmptyUnitListIsAValidBackup)
{
    const auto read = readBackup(R"({"format": "vornlink-backup", "version": 1, "taken": "t", "units": []})");
    ASSERT_TRUE(std::holds_alternative<Backup>(read));
    EXPECT_TRUE(std::get<Backup>(read).units.empty());
}

TEST(BackupFile, TimestampIsUtcIso8601)
{
    EXPECT_EQ(utcTimestamp(std::chrono::system_clock::time_point(std::chrono::seconds(1795309323))),
              "2026-11-22T01:02:03Z");
}

TEST(BackupFile, TextThatIsNotJsonIsRefusedWithItsPlace)
{
    EXPECT_EQ(errorOf("{\"format\": "), "file: not valid JSON (at byte 12)");
    EXPECT_EQ(errorOf(""), "file: not valid JSON (at byte 1)");
}

TEST(BackupFile, OtherFormatIsRefused)
{
    EXPECT_EQ(errorOf(R"({"format": "other", "version": 1, "taken": "t", "units": []})"),
              "file: \"format\" is not \"vornlink-backup\"");
    EXPECT_EQ(errorOf(R"([1, 2])"), "file: must be a JSON object");
    EXPECT_EQ(errorOf(R"({"version": 1})"), "file: \"format\" is missing");
}

TEST(BackupFile, NewerVersionIsRefused)
{
    EXPECT_EQ(errorOf(R"({"format": "vornlink-backup", "version": 2, "taken": "t", "units": []})"),
              "file: version 2 is newer than this program reads (1)");
    EXPECT_EQ(errorOf(R"({"format": "vornlink-backup", "version": 0, "taken": "t", "units": []})"),
              "file: version 0 is not a version of this format");
    EXPECT_EQ(errorOf(R"({"format": "vornlink-backup", "version": "1", "taken": "t", "units": []})"),
              "file: \"version\" must be a whole number");
    EXPECT_EQ(errorOf(R"({"format": "vornlink-backup", "version": 1.5, "taken": "t", "units": []})"),
              "file: \"version\" must be a whole number");
}

TEST(BackupFile, MissingOrMistypedTopFieldsAreNamed)
{
    EXPECT_EQ(errorOf(R"({"format": "vornlink-backup", "version": 1, "units": []})"), "file: \"taken\" is missing");
    EXPECT_EQ(errorOf(R"({"format": "vornlink-backup", "version": 1, "taken": "t", "units": {}})"),
              "file: \"units\" must be an array");
}

TEST(BackupFile, UnitProblemsNameTheUnitIndex)
{
    EXPECT_EQ(errorOf(withUnit(R"("text")")), "unit 0: must be an object");
    EXPECT_EQ(errorOf(withUnit(R"({"address": "10.0.0.1", "firmware": "", "config": {}})")),
              "unit 0: \"serial\" is missing");
    EXPECT_EQ(errorOf(withUnit(R"({"serial": "", "address": "10.0.0.1", "firmware": "", "config": {}},
                                  {"serial": 5, "address": "10.0.0.1", "firmware": "", "config": {}})")),
              "unit 1: \"serial\" must be text");
    EXPECT_EQ(errorOf(withUnit(R"({"serial": "", "address": "10.0.0", "firmware": "", "config": {}})")),
              "unit 0: \"address\" \"10.0.0\" is not an IPv4 address");
    EXPECT_EQ(errorOf(withUnit(R"({"serial": "", "address": "10.0.0.1", "firmware": "", "config": []})")),
              "unit 0: \"config\" must be an object");
}

TEST(BackupFile, ValueProblemsNameTheUnitAndKey)
{
    EXPECT_EQ(errorOf(withUnit(R"({"serial": "", "address": "10.0.0.1", "firmware": "", "config": {"Channel": 3}})")),
              "unit 0, key \"Channel\": the value must be text");
    EXPECT_EQ(errorOf(withUnit(R"({"serial": "", "address": "10.0.0.1", "firmware": "", "config": {"Channel": null}})")),
              "unit 0, key \"Channel\": the value must be text");
}

TEST(BackupFile, ValueWithLineBreakOrNulIsRefused)
{
    EXPECT_EQ(errorOf(withUnit(R"({"serial": "", "address": "10.0.0.1", "firmware": "",
                                   "config": {"CallMagic": "x\nIPAddress:10.9.9.9"}})")),
              "unit 0, key \"CallMagic\": the value of CallMagic holds a line feed (LF)");
    EXPECT_EQ(errorOf(withUnit(R"({"serial": "", "address": "10.0.0.1", "firmware": "", "config": {"Channel": "1\r"}})")),
              "unit 0, key \"Channel\": the value of Channel holds a carriage return (CR)");
    EXPECT_EQ(errorOf(withUnit(R"({"serial": "", "address": "10.0.0.1", "firmware": "", "config": {"Channel": "1\u0000"}})")),
              "unit 0, key \"Channel\": the value of Channel holds a NUL character");
}

TEST(BackupFile, KeyWithColonOrLineFeedIsRefused)
{
    EXPECT_EQ(errorOf(withUnit(R"({"serial": "", "address": "10.0.0.1", "firmware": "", "config": {"IPAddress:1": "x"}})")),
              "unit 0: key \"IPAddress:1\" holds a colon (:)");
    EXPECT_EQ(errorOf(withUnit(R"({"serial": "", "address": "10.0.0.1", "firmware": "", "config": {"A\nB": "x"}})")),
              "unit 0: key \"A\\nB\" holds a line feed (LF)");
    EXPECT_EQ(errorOf(withUnit(R"({"serial": "", "address": "10.0.0.1", "firmware": "", "config": {"": "x"}})")),
              "unit 0: a key is empty");
}

TEST(BackupFile, KeyGivenTwiceKeepsItsLastValue)
{
    const auto read = readBackup(withUnit(R"({"serial": "", "address": "10.0.0.1", "firmware": "",
                                              "config": {"Channel": "1", "Channel": "2"}})"));
    ASSERT_TRUE(std::holds_alternative<Backup>(read));
    EXPECT_EQ(std::get<Backup>(read).units.at(0).config, (Vorn::Config{{"Channel", "2"}}));
}

TEST(BackupFile, NumberOutOfRangeIsNotJson)
{
    EXPECT_EQ(errorOf(R"({"format": "vornlink-backup", "version": 1e400, "taken": "t", "units": []})"),
              "file: not valid JSON (a number out of range)");
}

TEST(BackupFile, InvalidUtf8IsNotJson)
{
    EXPECT_EQ(errorOf(withUnit("{\"serial\": \"\xFF\"}")).rfind("file: not valid JSON", 0), 0u);
}

TEST(BackupFile, DeepNestingIsRefusedWithoutCrashing)
{
    const std::string deep = std::string(100000, '[') + std::string(100000, ']');
    EXPECT_EQ(errorOf(deep), "file: must be a JSON object");
    EXPECT_EQ(errorOf(std::string(100000, '[')).rfind("file: not valid JSON", 0), 0u);
}

TEST(BackupFile, OversizedFileIsRefusedBeforeParsing)
{
    EXPECT_EQ(errorOf(std::string(kBackupMaxBytes + 1, ' ')), "file: larger than 16 MiB");
}

std::string fileErrorOf(const std::string& path)
{
    const auto read = readBackupFile(path);
    if (const auto* error = std::get_if<BackupError>(&read))
        return english(error->message);
    return "(read without error)";
}

TEST(BackupFile, MissingFileIsNamedAsUnreadable)
{
    EXPECT_EQ(fileErrorOf("/nonexistent/fleet.json"), "/nonexistent/fleet.json: cannot be read");
}

TEST(BackupFile, FileErrorsNameTheFileThenTheProblem)
{
    const std::string path = testing::TempDir() + "backup-file-test-malformed.json";
    std::ofstream(path) << "{\"format\": ";
    EXPECT_EQ(fileErrorOf(path).rfind(path + ": file: not valid JSON", 0), 0u);
    std::remove(path.c_str());
}

TEST(BackupFile, FileWrittenIsReadBackEqual)
{
    const std::string path = testing::TempDir() + "backup-file-test-round-trip.json";
    ASSERT_TRUE(writeBackupFile(path, sampleBackup()));
    const auto read = readBackupFile(path);
    ASSERT_TRUE(std::holds_alternative<Backup>(read));
    EXPECT_EQ(std::get<Backup>(read), sampleBackup());
    std::remove(path.c_str());
}

TEST(BackupFile, FileInAMissingFolderCannotBeWritten)
{
    EXPECT_FALSE(writeBackupFile("/nonexistent/fleet.json", sampleBackup()));
}

}  // namespace
}  // namespace Settings
