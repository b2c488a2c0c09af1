// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import TestKit
import VornLink

// "Site store…" from the sidebar footer's menu: the dialog is made on first
// use, shows the window's choice and keeps what is typed in the window's
// settings (here the engine's memory, which writes no file).
TestCase {
    id: testCase

    name: "SiteStoreClickThrough"
    when: windowShown
    visible: true
    width: 1040
    height: 680

    property VornClient client
    property var view

    Component {
        id: viewComponent

        ContentView {
            width: 1040
            height: 680
        }
    }

    function init() {
        client = TestKit.makeClient();
        view = createTemporaryObject(viewComponent, testCase, { client: client });
        WindowMemory.siteStore = "";
    }

    function cleanup() {
        WindowMemory.siteStore = "";
    }

    // Opens the dialog from the footer's menu, as a user does.
    function openDialog() {
        const button = findChild(view, "fleetMenuButton");
        mouseClick(button);
        tryVerify(() => button.menu.opened);
        mouseClick(findChild(button.menu.contentItem, "siteStoreItem") || button.menu.itemAt(3));
        tryVerify(() => button.siteStoreDialog !== null && button.siteStoreDialog.opened);
        return button.siteStoreDialog;
    }

    function test_the_dialog_is_made_on_first_use() {
        compare(findChild(view, "fleetMenuButton").siteStoreDialog, null);
        const dialog = openDialog();
        verify(findChild(dialog.contentItem, "siteStoreField").activeFocus);
    }

    function test_a_server_typed_and_saved_is_kept_and_shown_again() {
        let dialog = openDialog();
        const uri = "postgresql://desk@studio-db/site";
        for (const character of uri)
            keyClick(character);
        waitForRendering(view);
        grabImage(view).save(TestKit.shotPath("site-store-dialog.png"));
        mouseClick(findChild(dialog.footer, "siteStoreSaveButton"));
        tryVerify(() => !dialog.opened);
        compare(WindowMemory.siteStore, uri);

        dialog = openDialog();
        const field = findChild(dialog.contentItem, "siteStoreField");
        compare(field.text, uri);
        field.selectAll();
        keyClick(Qt.Key_Delete);
        keyClick(Qt.Key_Return);
        tryVerify(() => !dialog.opened);
        compare(WindowMemory.siteStore, "");
    }

    function test_cancel_keeps_the_choice() {
        WindowMemory.siteStore = "/srv/site.sqlite";
        const dialog = openDialog();
        keyClick("x");
        mouseClick(findChild(dialog.footer, "siteStoreCancelButton"));
        tryVerify(() => !dialog.opened);
        compare(WindowMemory.siteStore, "/srv/site.sqlite");
    }
}
