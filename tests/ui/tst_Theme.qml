import QtQuick
import QtTest
import VornLink

TestCase {
    name: "Theme"

    function test_the_ten_colours_data() {
        return [
            { tag: "bg", colour: Theme.bg, rgba: [0.043, 0.086, 0.125, 1] },
            { tag: "surface", colour: Theme.surface, rgba: [0.082, 0.145, 0.192, 1] },
            { tag: "surface2", colour: Theme.surface2, rgba: [0.114, 0.192, 0.247, 1] },
            { tag: "stroke", colour: Theme.stroke, rgba: [1, 1, 1, 0.09] },
            { tag: "ink", colour: Theme.ink, rgba: [0.922, 0.953, 0.973, 1] },
            { tag: "inkMuted", colour: Theme.inkMuted, rgba: [0.596, 0.678, 0.729, 1] },
            { tag: "tally", colour: Theme.tally, rgba: [1.0, 0.271, 0.227, 1] },
            { tag: "cyan", colour: Theme.cyan, rgba: [0.22, 0.815, 0.909, 1] },
            { tag: "online", colour: Theme.online, rgba: [0.196, 0.843, 0.294, 1] },
            { tag: "amber", colour: Theme.amber, rgba: [1.0, 0.839, 0.039, 1] },
        ];
    }

    function test_the_ten_colours(data) {
        fuzzyCompare(data.colour.r, data.rgba[0], 0.0001);
        fuzzyCompare(data.colour.g, data.rgba[1], 0.0001);
        fuzzyCompare(data.colour.b, data.rgba[2], 0.0001);
        fuzzyCompare(data.colour.a, data.rgba[3], 0.0001);
    }
}
