import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit
import Ambrel.Model

// How much the history holds, or the last copy in a few words. A click opens the shelf.
TileFrame {
    id: root

    required property ClipboardModel clipboard
    property clipboardFace face: clipboard.face
    required property AppSettings settings
    required property ClipboardArea area
    readonly property bool showsLatest: settings.clipboardPreviewInBar && face.isInUse && !isSmall

    onActivated: area.toggleShelf()
    fact: showsLatest ? face.latestAge : ""
    value: showsLatest ? "" : face.value
    unit: showsLatest || isSmall ? "" : face.unit
    valueColor: face.isInUse ? Theme.ink : Theme.ink2
    subLine: showsLatest ? "" : isNarrow ? face.shortLine : face.line
    label: name + ", " + (showsLatest ? face.latestText + ", " + face.latestAge : value + (unit === "" ? "" : " " + unit) + ", " + face.line)
    tip: showsLatest && latest.truncated ? face.latestText : ""
    tipKeys: (keys.value ?? "").split("+").join(" ")

    SettingValue {
        id: keys
        key: "shelfKeys"
    }

    Label {
        id: latest

        visible: root.showsLatest
        y: root.valueTop + 1
        width: parent.width
        height: Math.min(implicitHeight, 2 * role.line)
        text: root.face.latestText
        role: Theme.listName
        lineHeight: 16 * Theme.textScale
        wrapMode: Text.Wrap
        maximumLineCount: 2
        Accessible.ignored: true
    }
}
