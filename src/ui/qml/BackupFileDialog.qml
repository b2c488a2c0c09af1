// SPDX-License-Identifier: Apache-2.0
// The native dialog that picks a backup file, made the first time it opens.
// The dialog comes by URL, so its module loads only then: the file dialogs
// cost start-up time and memory the window should not pay up front.
// `saving` asks for a new file (".json" added when missing), else an
// existing one; `chosen` gives the file picked. It opens in the folder of
// the last backup file chosen in any of them, in this run or an earlier one.
import QtQuick
import VornLink

Item {
    id: root

    required property string title
    required property string acceptLabel
    property bool saving: false
    readonly property bool shown: loader.item !== null && loader.item.visible

    signal chosen(url file)

    function open() {
        if (!loader.item)
            loader.setSource("BackupFilePicker.qml", {
                title: root.title,
                acceptLabel: root.acceptLabel,
                saving: root.saving
            });
        if (WindowMemory.backupFolder.toString() !== "")
            loader.item.currentFolder = WindowMemory.backupFolder;
        loader.item.open();
    }
    function close() {
        if (loader.item)
            loader.item.close();
    }

    Loader {
        id: loader
    }
    Connections {
        target: loader.item

        function onAccepted() {
            WindowMemory.rememberBackupFile(loader.item.selectedFile);
            root.chosen(loader.item.selectedFile);
        }
    }
}
