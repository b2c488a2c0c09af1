// SPDX-License-Identifier: Apache-2.0
// Work on all units from the sidebar footer's menu: "Export all units…"
// writes every listed unit into one backup file; "Restore from backup…"
// opens a file in the restore review; "Scan addresses…" asks a block of
// addresses by unicast. The files come from the native file
// dialogs; exportTo and reviewFile do the same without them.
import QtQuick
import VornLink

Item {
    id: root

    required property VornClient client
    readonly property alias review: review
    readonly property alias writer: writer
    // The restore review, made by URL the first time a file is reviewed.
    readonly property var reviewDialog: reviewLoader.item
    readonly property alias exportDialog: exportDialog
    readonly property alias restoreDialog: restoreDialog
    // What the last export did, shown under the footer's menu.
    readonly property alias exporter: exporter
    // The scan of an address block, and its dialog once made.
    readonly property alias scanner: scanner
    readonly property var scanDialog: scanLoader.item

    function chooseExportFile() {
        exportDialog.open();
    }
    // Opens "Scan addresses…", made the first time it is asked for.
    function openScan() {
        if (!scanLoader.item)
            scanLoader.setSource("ScanAddressesDialog.qml", {
                objectName: "scanDialog",
                scan: scanner
            });
        scanLoader.item.open();
    }
    function chooseRestoreFile() {
        restoreDialog.open();
    }
    function exportTo(file) {
        return exporter.exportAll(file);
    }
    // Opens the review of `file`; a file that cannot be read shows why there.
    function reviewFile(file) {
        writer.clear();
        review.open(file);
        if (!reviewLoader.item)
            reviewLoader.setSource("RestoreReviewDialog.qml", {
                objectName: "restoreReview",
                review: review,
                writer: writer
            });
        reviewLoader.item.open();
    }

    BackupExport {
        id: exporter

        client: root.client
    }
    RestoreReview {
        id: review

        client: root.client
    }
    AddressScan {
        id: scanner

        client: root.client
    }
    BatchWriter {
        id: writer

        client: root.client
    }

    BackupFileDialog {
        id: exportDialog

        title: qsTr("Export all units")
        acceptLabel: qsTr("Export")
        saving: true
        onChosen: file => root.exportTo(file)
    }
    BackupFileDialog {
        id: restoreDialog

        title: qsTr("Restore from backup")
        acceptLabel: qsTr("Review")
        onChosen: file => root.reviewFile(file)
    }

    Loader {
        id: reviewLoader
    }
    Loader {
        id: scanLoader
    }
}
