import QtQuick
import Ambrel.Kit

// One of a few words. Left and Right move the choice; `chosen` says which is wanted.
FocusScope {
    id: root

    property list<string> options
    property int current: 0
    property string label
    // Where there is little room.
    property bool hasSmallType: false

    signal chosen(int index)

    function step(by: int) {
        const next = current + by;
        if (next >= 0 && next < options.length)
            chosen(next);
    }

    implicitWidth: row.width + 4
    implicitHeight: hasSmallType ? Theme.caption.line + Theme.space3 : Math.max(32, Theme.rowTitle.line + Theme.space4)
    opacity: enabled ? 1 : 0.5
    activeFocusOnTab: enabled
    Accessible.role: Accessible.RadioButton
    Accessible.name: label + (current >= 0 && current < options.length ? ", " + options[current] : "")
    Accessible.focusable: true
    Accessible.checkable: true
    Accessible.checked: current >= 0
    Keys.onLeftPressed: root.step(-1)
    Keys.onRightPressed: root.step(1)

    Rectangle {
        id: ground
        anchors.fill: parent
        radius: Theme.radiusButton
        color: Theme.field
        border.width: 1
        border.color: Theme.over(Theme.lineStrong, Theme.field)
    }
    Row {
        id: row
        x: 2
        y: 2
        height: root.height - 4

        Repeater {
            model: root.options

            Item {
                id: segment

                required property int index
                required property string modelData
                readonly property bool isChosen: index === root.current

                width: Math.ceil(word.implicitWidth) + (root.hasSmallType ? 2 * 6 : 2 * Theme.space3 + 2)
                height: row.height

                Rectangle {
                    anchors.fill: parent
                    visible: segment.isChosen
                    radius: Theme.radiusSmall
                    color: Theme.cardHover
                    border.width: 1
                    border.color: Theme.over(Theme.lineStrong, Theme.cardHover)
                }
                Label {
                    id: word
                    anchors.centerIn: parent
                    text: segment.modelData
                    role: root.hasSmallType ? (segment.isChosen ? Theme.captionStrong : Theme.caption) : segment.isChosen ? Theme.rowTitle : Theme.listName
                    color: segment.isChosen || hover.hovered ? Theme.ink : Theme.ink2
                    Accessible.role: Accessible.RadioButton
                    Accessible.checkable: true
                    Accessible.checked: segment.isChosen
                    Accessible.onPressAction: root.chosen(segment.index)
                }
                HoverHandler {
                    id: hover
                }
                TapHandler {
                    gesturePolicy: TapHandler.ReleaseWithinBounds
                    onTapped: root.chosen(segment.index)
                }
            }
        }
    }
    FocusRing {}
}
