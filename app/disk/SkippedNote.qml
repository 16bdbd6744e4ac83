import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// A note about the limits of a scan; the tip has the details.
Item {
    id: root

    property string text
    property string folders
    property string symbol: "lock"

    visible: text !== ""
    height: visible ? words.height + Theme.space5 : 0
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.description: folders

    Symbol {
        x: Theme.space6
        y: words.y
        name: root.symbol
        size: 18
        color: Theme.ink3
    }
    Label {
        id: words

        x: 54
        y: Theme.space3
        width: root.width - x - Theme.space6
        text: root.text
        role: Theme.small
        color: Theme.ink2
        wrapMode: Text.WordWrap
        Accessible.ignored: true
    }
    HoverHandler {
        onHoveredChanged: hovered && root.folders !== "" ? Tips.enter(root, root.folders) : Tips.leave(root)
    }
}
