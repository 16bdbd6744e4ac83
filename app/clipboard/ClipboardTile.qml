import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit
import Ambrel.Model

// How much the history holds, or the last copy in a few words. A click opens the shelf.
TileFrame {
    id: root

    required property ClipboardModel clipboard
    required property AppSettings settings
    required property ClipboardArea area
    readonly property bool isOn: settings.clipboardEnabled
    readonly property bool isEmpty: clipboard.count === 0
    readonly property bool showsLatest: settings.clipboardPreviewInBar && isOn && !isEmpty && span !== TileFrame.Small

    onActivated: area.toggleShelf()
    fact: showsLatest ? clipboard.latestAge : ""
    value: showsLatest ? "" : !isOn ? qsTr("Off") : isEmpty ? qsTr("Empty") : clipboard.countText
    unit: showsLatest || !isOn || isEmpty || span === TileFrame.Small ? "" : clipboard.count === 1 ? qsTr("clip") : qsTr("clips")
    valueColor: isOn && !isEmpty ? Theme.ink : Theme.ink2
    subLine: showsLatest ? "" : !isOn ? isEmpty ? qsTr("Nothing is kept") : qsTr("%1 kept from before").arg(clipboard.countText) : isEmpty ? qsTr("Copy something") : clipboard.latestLine
    label: name + ", " + (showsLatest ? clipboard.latestText + ", " + clipboard.latestAge : value + " " + unit + ", " + subLine)
    tip: showsLatest && latest.truncated ? clipboard.latestText : ""
    tipKeys: qsTr("Super Alt V")

    Label {
        id: latest

        visible: root.showsLatest
        y: root.valueTop + 1
        width: parent.width
        height: Math.min(implicitHeight, 2 * role.line)
        text: root.clipboard.latestText
        role: Theme.listName
        lineHeight: 16 * Theme.textScale
        wrapMode: Text.Wrap
        maximumLineCount: 2
        Accessible.ignored: true
    }
}
