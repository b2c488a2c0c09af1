// SPDX-License-Identifier: Apache-2.0
// The file dialog of BackupFileDialog, which makes it on first use.
import QtQuick
import QtQuick.Dialogs

FileDialog {
    // A new file to write, else an existing one to read.
    property bool saving: false

    fileMode: saving ? FileDialog.SaveFile : FileDialog.OpenFile
    defaultSuffix: "json"
    nameFilters: [qsTr("Backup files (*.json)"), qsTr("All files (*)")]
}
