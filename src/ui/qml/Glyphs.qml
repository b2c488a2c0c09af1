// The icon font (Material Icons, embedded with its licence) and the glyphs
// the window draws, named by what they stand for.
pragma Singleton
import QtQuick

QtObject {
    readonly property FontLoader loader: FontLoader {
        source: "fonts/MaterialIcons-Regular.ttf"
    }
    readonly property string family: loader.name

    readonly property string station: "\ue51e"      // sensors: a base station
    readonly property string broadcast: "\uebba"    // cell_tower: discover on the LAN
}
