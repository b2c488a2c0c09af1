// SPDX-License-Identifier: Apache-2.0
// What covers an item: the visible pop-ups (tooltips, menus, dialogs) of its
// window whose rectangle meets the item's.
pragma Singleton
import QtQuick
import QtQuick.Controls

QtObject {
    function popupsOver(item) {
        const overlay = item.Overlay.overlay;
        const box = item.mapToItem(overlay, 0, 0, item.width, item.height);
        const found = [];
        for (let i = 0; i < overlay.children.length; ++i) {
            const popup = overlay.children[i];
            if (!popup.visible || popup.width === 0 || popup.height === 0)
                continue;
            if (popup.x < box.x + box.width && box.x < popup.x + popup.width
                    && popup.y < box.y + box.height && box.y < popup.y + popup.height)
                found.push(popup);
        }
        return found;
    }
}
