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
    readonly property bool showsLatest: settings.clipboardPreviewInBar && clipboard.face.isInUse && !isSmall

    onActivated: area.toggleShelf()
    fact: showsLatest ? clipboard.face.latestAge : ""
    value: showsLatest ? "" : clipboard.face.value
    unit: showsLatest || isSmall ? "" : clipboard.face.unit
    valueColor: clipboard.face.isInUse ? Theme.ink : Theme.ink2
    subLine: showsLatest ? "" : isNarrow ? clipboard.face.shortLine : clipboard.face.line
    label: name + ", " + (showsLatest ? clipboard.face.latestText + ", " + clipboard.face.latestAge : value + (unit === "" ? "" : " " + unit) + ", " + clipboard.face.line)
    tip: showsLatest && latest.truncated ? clipboard.face.latestText : ""
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
        text: root.clipboard.face.latestText
        role: Theme.listName
        lineHeight: 16 * Theme.textScale
        wrapMode: Text.Wrap
        maximumLineCount: 2
        Accessible.ignored: true
    }
}
