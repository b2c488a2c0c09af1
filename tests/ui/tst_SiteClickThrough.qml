// SPDX-License-Identifier: Apache-2.0
import QtQuick
import QtTest
import TestKit
import VornLink

// The window's site memory, clicked through with a store in a scratch file
// and units filed by hand (no network): a remembered unit listed offline,
// forgetting a unit from its row's menu (right click and the Menu key) and
// from the editor's "…" menu, earlier runs' activity, and the footer's notice
// when nothing can be remembered.
TestCase {
    id: testCase

    name: "SiteClickThrough"
    when: windowShown
    visible: true
    width: 1040
    height: 680

    property VornClient client
    property var view
    property int sites: 0

    Component {
        id: viewComponent

        ContentView {
            width: 1040
            height: 680
        }
    }

    function cleanup() {
        TestKit.closeSite();
    }

    function child(name) {
        return findChild(view, name);
    }

    function unitConfig(ip, serial) {
        return { IPAddress: ip, Netmask: "255.255.255.0", Gateway: "10.232.1.254", Channel: "3", Serial: serial,
                 Version: "2.4.1" };
    }

    function row(index) {
        const list = child("deviceList");
        list.forceLayout();
        return list.itemAtIndex(index);
    }

    function shoot(name) {
        waitForRendering(view);
        grabImage(view).save(TestKit.shotPath(name));
    }

    // A store in which an earlier run heard the units `ips`, at `heardAt` if given.
    function storeWith(ips, heardAt) {
        const file = TestKit.scratchFile("site-" + (++sites) + ".sqlite");
        const earlier = TestKit.makeClient();
        if (heardAt !== undefined)
            TestKit.setNow(earlier, heardAt);
        TestKit.rememberSite(earlier, file);
        for (let i = 0; i < ips.length; ++i)
            TestKit.ingest(earlier, ips[i], unitConfig(ips[i], "KT4-00001" + i));
        TestKit.closeSite();
        return file;
    }

    // The window of a new run on the store at `file`.
    function openWindow(file) {
        client = TestKit.makeClient();
        TestKit.rememberSite(client, file);
        view = createTemporaryObject(viewComponent, testCase, { client: client });
        waitForRendering(child("deviceList"));
    }

    function forgetDialog() {
        return child("forgetDialog");
    }

    function test_a_remembered_unit_is_listed_offline_and_forgotten_from_its_row() {
        const file = storeWith(["10.232.1.7", "10.232.1.8"]);
        openWindow(file);
        compare(client.deviceCount, 2);
        const remembered = row(0);
        compare(remembered.ip, "10.232.1.7");
        verify(!remembered.online);
        compare(remembered.lastSeenNote, "last seen just now");
        verify(findChild(remembered, "rowLastSeen").visible);
        mouseClick(remembered);
        compare(view.unitSelection.current, "10.232.1.7");
        tryVerify(() => child("detailLoader").item !== null);
        compare(child("onlineChip").text, "Offline");
        shoot("site-remembered-offline.png");

        // A right click on the other row opens its menu, without selecting it.
        mouseClick(row(1), 40, 20, Qt.RightButton);
        const menu = child("unitRowMenu");
        tryVerify(() => menu.opened);
        compare(menu.ip, "10.232.1.8");
        compare(view.unitSelection.current, "10.232.1.7");
        compare(menu.itemAt(0).text, "Forget this unit\u2026");
        shoot("site-row-menu.png");
        mouseClick(menu.itemAt(0));
        tryVerify(() => forgetDialog().opened);
        compare(findChild(forgetDialog(), "forgetTitle").text, "Forget KT400 ·000011?");
        const message = findChild(forgetDialog(), "forgetMessage").text;
        verify(message.indexOf("10.232.1.8") >= 0, message);
        verify(message.indexOf("comes back as soon as it answers again") >= 0, message);
        shoot("site-forget-confirm.png");

        // Cancel, the default, forgets nothing.
        keyClick(Qt.Key_Return);
        tryVerify(() => !forgetDialog().visible);
        compare(client.deviceCount, 2);

        mouseClick(row(1), 40, 20, Qt.RightButton);
        tryVerify(() => menu.opened);
        mouseClick(menu.itemAt(0));
        tryVerify(() => forgetDialog().opened);
        mouseClick(findChild(forgetDialog(), "forgetButton"));
        tryVerify(() => !forgetDialog().visible);
        compare(client.deviceCount, 1);
        compare(row(0).ip, "10.232.1.7");
        compare(view.unitSelection.current, "10.232.1.7");

        // The next run remembers only the unit left.
        TestKit.closeSite();
        openWindow(file);
        compare(client.deviceCount, 1);
        compare(row(0).ip, "10.232.1.7");
    }

    function test_the_menu_key_and_the_editor_menu_forget_the_selected_unit_which_comes_back_when_it_answers() {
        openWindow(storeWith([]));
        TestKit.ingest(client, "10.232.1.20", unitConfig("10.232.1.20", "KT4-000020"));
        TestKit.ingest(client, "10.232.1.21", unitConfig("10.232.1.21", "KT4-000021"));
        mouseClick(row(1));
        compare(view.unitSelection.current, "10.232.1.21");

        // The Menu key opens the selected row's menu.
        verify(child("deviceList").activeFocus);
        keyClick(Qt.Key_Menu);
        const menu = child("unitRowMenu");
        tryVerify(() => menu.opened);
        compare(menu.ip, "10.232.1.21");
        keyClick(Qt.Key_Escape);
        tryVerify(() => !menu.visible);

        // The editor's "…" menu has the same entry.
        const detail = child("detailLoader");
        tryVerify(() => detail.item !== null);
        const menuButton = findChild(detail.item, "editorMenuButton");
        mouseClick(menuButton);
        tryVerify(() => menuButton.menu.opened);
        compare(menuButton.menu.itemAt(2).text, "Forget this unit\u2026");
        shoot("site-editor-menu.png");
        mouseClick(menuButton.menu.itemAt(2));
        tryVerify(() => forgetDialog().opened);
        compare(forgetDialog().ip, "10.232.1.21");
        mouseClick(findChild(forgetDialog(), "forgetButton"));
        tryVerify(() => !forgetDialog().visible);
        compare(client.deviceCount, 1);
        compare(view.unitSelection.current, "");
        verify(child("emptyState").visible);
        verify(client.log[client.log.length - 1].endsWith("forgot 10.232.1.21"));

        // An online unit that answers again is simply listed again.
        TestKit.ingest(client, "10.232.1.21", unitConfig("10.232.1.21", "KT4-000021"));
        compare(client.deviceCount, 2);
        verify(row(1).online);
        compare(row(1).lastSeenNote, "");
    }

    function test_a_forgotten_unit_leaves_a_selection_of_several() {
        openWindow(storeWith([]));
        for (let i = 1; i <= 3; ++i)
            TestKit.ingest(client, "10.232.1." + i, unitConfig("10.232.1." + i, "KT4-00000" + i));
        mouseClick(row(0));
        keyClick(Qt.Key_A, Qt.ControlModifier);
        compare(view.unitSelection.count, 3);

        mouseClick(row(1), 40, 20, Qt.RightButton);
        const menu = child("unitRowMenu");
        tryVerify(() => menu.opened);
        mouseClick(menu.itemAt(0));
        tryVerify(() => forgetDialog().opened);
        mouseClick(findChild(forgetDialog(), "forgetButton"));
        tryVerify(() => !forgetDialog().visible);

        compare(client.deviceCount, 2);
        compare(view.unitSelection.addresses, ["10.232.1.1", "10.232.1.3"]);
        verify(view.multiSelected);
    }

    function test_earlier_runs_activity_shows_above_this_runs_under_date_lines() {
        // An hour ago: a run that ended within the same millisecond as this
        // one started would not be earlier by the stored times.
        const file = storeWith(["10.232.1.7"], new Date(Date.now() - 3600 * 1000));
        openWindow(file);
        TestKit.ingest(client, "10.232.1.30", unitConfig("10.232.1.30", "KT4-000030"));
        view.activityShown = true;
        compare(client.activity.count, 1);

        TestKit.showEarlierActivity();

        tryVerify(() => client.activity.count === 4);
        const lines = client.log;
        verify(lines[0].startsWith("\u2014\u2014 "), lines[0]);
        verify(lines[1].endsWith("  found 10.232.1.7"), lines[1]);
        verify(lines[2].endsWith(" \u00b7 this run \u2014\u2014"), lines[2]);
        verify(lines[3].endsWith("  found 10.232.1.30"), lines[3]);
        shoot("site-earlier-activity.png");
    }

    function test_the_footer_says_when_nothing_is_remembered() {
        // A file where the store's folder should be.
        const blocker = TestKit.scratchFile("blocker");
        verify(TestKit.writeTextFile(blocker, "not a folder"));
        client = TestKit.makeClient();
        TestKit.rememberSite(client, TestKit.scratchFile("blocker/vornlink/site.sqlite"));
        view = createTemporaryObject(viewComponent, testCase, { client: client });
        const notice = child("siteNotice");
        verify(notice.visible);
        verify(notice.text.startsWith("Not remembering: cannot make the folder "), notice.text);
        compare(notice.textFormat, Text.PlainText);
        shoot("site-not-remembering.png");
        // The window works on: a unit is listed.
        TestKit.ingest(client, "10.232.1.40", unitConfig("10.232.1.40", "KT4-000040"));
        compare(client.deviceCount, 1);
    }

    function test_the_footer_says_when_the_site_server_does_not_answer() {
        // A folder where no server listens.
        client = TestKit.makeClient();
        TestKit.rememberSite(client, TestKit.silentSiteServer());
        view = createTemporaryObject(viewComponent, testCase, { client: client });
        const notice = child("siteNotice");
        tryVerify(() => notice.visible, 10000);
        verify(notice.text.startsWith("Site server unreachable: "), notice.text);
        shoot("site-server-unreachable.png");
        TestKit.ingest(client, "10.232.1.40", unitConfig("10.232.1.40", "KT4-000040"));
        compare(client.deviceCount, 1);
    }
}
