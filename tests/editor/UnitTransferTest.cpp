// SPDX-License-Identifier: Apache-2.0
// "Export settings…" and "Import settings…" of the editor header: a unit
// into a file of one unit and back, by serial or the file's only unit, and
// files that change nothing. The fake link opens no socket.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

#include "BackupFile.h"
#include "EditorTestKit.h"
#include "UnitTransfer.h"

using namespace EditorTest;

namespace {

const Vorn::Config kUnit = cleanUnit({{"Serial", "VB-0001"},
                                      {"Channel", "3"},
                                      {"CallMagic", "secret"},
                                      {"IPAddress", "127.0.0.2"},
                                      {"Netmask", "255.0.0.0"},
                                      {"Gateway", "127.0.0.1"}});

class UnitTransferTest : public EditorFixture {
protected:
    QTemporaryDir dir;
    UnitTransfer transfer;

    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        report(kUnit);
        open();
        transfer.setEditor(&editor);
    }
    QUrl file(const QString& name) const { return QUrl::fromLocalFile(dir.filePath(name)); }
    void writeFile(const QString& name, const Settings::Backup& backup) const
    {
        ASSERT_TRUE(Settings::writeBackupFile(dir.filePath(name).toStdString(), backup));
    }
};

TEST_F(UnitTransferTest, ExportWritesOneUnitAsReported)
{
    ASSERT_TRUE(transfer.exportTo(file("one.json")));
    const auto read = Settings::readBackupFile(dir.filePath("one.json").toStdString());
    ASSERT_TRUE(std::holds_alternative<Settings::Backup>(read));
    const auto& backup = std::get<Settings::Backup>(read);
    ASSERT_EQ(backup.units.size(), 1u);
    EXPECT_EQ(backup.units.front().serial, "VB-0001");
    EXPECT_EQ(backup.units.front().address, kUnitIp);
    EXPECT_EQ(backup.units.front().config, kUnit);
}

TEST_F(UnitTransferTest, ImportLoadsTheValuesAsUnsavedChanges)
{
    ASSERT_TRUE(transfer.exportTo(file("one.json")));
    report(overlaid(kUnit, {{"Channel", "9"}, {"CallMagic", "other"}}));
    editor.load();
    ASSERT_FALSE(editor.dirty());
    ASSERT_TRUE(transfer.importFrom(file("one.json")));
    EXPECT_FALSE(transfer.failed());
    EXPECT_EQ(communication().fieldAs<TextField>("Channel")->text(), "3");
    EXPECT_EQ(communication().fieldAs<TextField>("CallMagic")->text(), "secret");
    EXPECT_TRUE(editor.dirty());
    EXPECT_TRUE(link.writes.empty());
    editor.save();
    EXPECT_EQ(lastWrite(), (Vorn::Config{{"Channel", "3"}, {"CallMagic", "secret"}}));
}

TEST_F(UnitTransferTest, ImportPicksTheUnitWithThisSerial)
{
    writeFile("two.json", {"2026-11-23T01:00:00Z",
                           {Settings::backupUnitOf("10.0.0.1", cleanUnit({{"Serial", "VB-0002"}, {"Channel", "5"}})),
                            Settings::backupUnitOf("10.0.0.2", cleanUnit({{"Serial", "VB-0001"}, {"Channel", "8"}}))}});
    ASSERT_TRUE(transfer.importFrom(file("two.json")));
    EXPECT_EQ(communication().fieldAs<TextField>("Channel")->text(), "8");
}

TEST_F(UnitTransferTest, TheOnlyUnitWithAnotherSerialIsImportedOnlyWhenAskedFor)
{
    writeFile("other.json",
              {"2026-11-23T01:00:00Z", {Settings::backupUnitOf("10.0.0.1", cleanUnit({{"Serial", "VB-0099"}, {"Channel", "5"}}))}});
    EXPECT_FALSE(transfer.importFrom(file("other.json")));
    EXPECT_TRUE(transfer.failed());
    EXPECT_TRUE(transfer.otherUnitOffered());
    EXPECT_EQ(transfer.message(), dir.filePath("other.json")
                                      + QStringLiteral(" holds the settings of another unit (serial VB-0099); this "
                                                       "unit reports serial VB-0001"));
    EXPECT_EQ(communication().fieldAs<TextField>("Channel")->text(), "3");
    EXPECT_FALSE(editor.dirty());

    ASSERT_TRUE(transfer.importOtherUnit());
    EXPECT_FALSE(transfer.otherUnitOffered());
    EXPECT_EQ(communication().fieldAs<TextField>("Channel")->text(), "5");
    EXPECT_TRUE(editor.dirty());
    EXPECT_FALSE(transfer.importOtherUnit());
}

TEST_F(UnitTransferTest, ImportListsTheKeysItHasNoFieldFor)
{
    writeFile("extra.json", {"2026-11-23T01:00:00Z",
                             {Settings::backupUnitOf("10.0.0.1", overlaid(kUnit, {{"Channel", "5"},
                                                                                  {"ManagerIp", "10.0.0.2"},
                                                                                  {"SilenceThreshold", "30"}}))}});
    ASSERT_TRUE(transfer.importFrom(file("extra.json")));
    EXPECT_TRUE(transfer.message().endsWith(QStringLiteral("\nNot imported (no field here): ManagerIp, SilenceThreshold")))
        << transfer.message().toStdString();
    editor.save();
    EXPECT_EQ(lastWrite(), (Vorn::Config{{"Channel", "5"}}));
}

TEST_F(UnitTransferTest, NetworkKeysLandInTheNetworkFieldsOnly)
{
    writeFile("moved.json",
              {"2026-11-23T01:00:00Z",
               {Settings::backupUnitOf("10.0.0.1", overlaid(kUnit, {{"IPAddress", "127.0.0.9"}}))}});
    ASSERT_TRUE(transfer.importFrom(file("moved.json")));
    EXPECT_EQ(network().fieldAs<TextField>("IPAddress")->text(), "127.0.0.9");
    EXPECT_FALSE(editor.dirty());
    EXPECT_TRUE(editor.canApplyNetwork());
    editor.save();
    EXPECT_TRUE(link.writes.empty());
}

TEST_F(UnitTransferTest, FileWithoutThisSerialAmongSeveralChangesNothing)
{
    writeFile("others.json", {"2026-11-23T01:00:00Z",
                              {Settings::backupUnitOf("10.0.0.1", cleanUnit({{"Serial", "VB-0002"}, {"Channel", "5"}})),
                               Settings::backupUnitOf("10.0.0.2", cleanUnit({{"Serial", "VB-0003"}, {"Channel", "6"}}))}});
    EXPECT_FALSE(transfer.importFrom(file("others.json")));
    EXPECT_TRUE(transfer.failed());
    EXPECT_TRUE(transfer.message().contains("VB-0001")) << transfer.message().toStdString();
    EXPECT_EQ(communication().fieldAs<TextField>("Channel")->text(), "3");
    EXPECT_FALSE(editor.dirty());
}

TEST_F(UnitTransferTest, UnreadableFileNamesTheProblemAndChangesNothing)
{
    QFile broken(dir.filePath("broken.json"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("{\"format\": \"vornlink-backup\", ");
    broken.close();
    EXPECT_FALSE(transfer.importFrom(file("broken.json")));
    EXPECT_TRUE(transfer.message().contains("broken.json")) << transfer.message().toStdString();
    EXPECT_FALSE(transfer.importFrom(file("missing.json")));
    EXPECT_TRUE(transfer.message().contains("missing.json")) << transfer.message().toStdString();
    EXPECT_FALSE(editor.dirty());
    EXPECT_EQ(communication().fieldAs<TextField>("Channel")->text(), "3");
}

TEST_F(UnitTransferTest, ExportOfAUnitThatHasNotAnsweredRefusesAndWritesNoFile)
{
    editor.setIp(QStringLiteral("127.0.0.99"));
    EXPECT_FALSE(transfer.exportTo(file("nothing.json")));
    EXPECT_TRUE(transfer.failed());
    EXPECT_EQ(transfer.message(), QStringLiteral("This unit has not answered yet; there is nothing to export"));
    EXPECT_FALSE(QFile::exists(dir.filePath("nothing.json")));
}

TEST_F(UnitTransferTest, UnwritableExportFileSaysSo)
{
    EXPECT_FALSE(transfer.exportTo(QUrl::fromLocalFile(dir.filePath("no/such/dir/x.json"))));
    EXPECT_TRUE(transfer.failed());
    EXPECT_TRUE(transfer.message().contains("x.json"));
}

}  // namespace
