import QtQuick
import Ambrel.Kit

// One of many words: a button with the present one, below which the others open. Up, Down and the first letter walk.
Pressable {
    id: root

    property string name
    property var options: [] // texts
    property int current: -1
    readonly property bool isOpen: list.visible
    readonly property real rowHeight: Theme.body.line + 10
    // For the list, within the panel's window and its margin.
    property real roomAbove
    property real roomBelow
    readonly property bool opensAbove: roomBelow < list.wantedHeight && roomAbove > roomBelow

    signal chosen(int index)

    function openList() {
        const margin = 68;
        const top = root.mapToItem(null, 0, 0).y;
        roomAbove = top - margin;
        roomBelow = root.Window.height - margin - top - root.height;
        list.visible = true;
        list.currentIndex = root.current;
        list.positionViewAtIndex(Math.max(0, root.current), ListView.Center);
        list.forceActiveFocus();
    }
    function closeList() {
        if (!list.visible)
            return;
        list.visible = false;
        root.forceActiveFocus();
    }
    function take(index: int) {
        closeList();
        if (index !== root.current)
            chosen(index);
    }
    function step(by: int) {
        const next = root.current + by;
        if (!isOpen && next >= 0 && next < root.options.length)
            chosen(next);
    }

    label: name + ", " + text.text
    accessibleRole: Accessible.ComboBox
    implicitWidth: 160
    implicitHeight: Math.max(32, Theme.body.line + 14)
    z: isOpen ? 2 : 0
    onClicked: isOpen ? closeList() : openList()
    Keys.onUpPressed: root.step(-1)
    Keys.onDownPressed: root.step(1)

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusButton
        color: root.hovered || root.down ? Theme.cardHover : Theme.field
        border.width: 1
        border.color: Theme.over(Theme.lineStrong, Theme.field)
    }
    TipLabel {
        id: text

        anchors {
            left: parent.left
            leftMargin: Theme.space3
            right: mark.left
            verticalCenter: parent.verticalCenter
        }
        text: root.options[root.current] ?? ""
    }
    Symbol {
        id: mark

        anchors.right: parent.right
        anchors.rightMargin: Theme.space2
        anchors.verticalCenter: parent.verticalCenter
        name: "chevron.down"
        size: 16
        color: Theme.ink2
    }
    FocusRing {}

    PanelGround {
        visible: list.visible
        x: list.x - 1
        y: list.y - 5
        width: list.width + 2
        height: list.height + 10
        radius: Theme.radiusCard
        shadow: "floating"
    }
    ListView {
        id: list

        readonly property real wantedHeight: root.rowHeight * Math.min(root.options.length, 8)

        visible: false
        y: root.opensAbove ? -height - 9 : root.height + 9
        width: root.width
        height: Math.min(wantedHeight, Math.max(root.roomAbove, root.roomBelow))
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        keyNavigationEnabled: true
        model: visible ? root.options : []
        Accessible.role: Accessible.List
        Accessible.name: root.name
        onActiveFocusChanged: if (!activeFocus)
            visible = false
        Keys.onReturnPressed: root.take(currentIndex)
        Keys.onEnterPressed: root.take(currentIndex)
        Keys.onSpacePressed: root.take(currentIndex)
        Keys.onEscapePressed: root.closeList()
        Keys.onPressed: event => {
            const letter = event.text.toLocaleLowerCase();
            if (letter.trim() === "")
                return;
            for (let i = 1; i <= root.options.length; ++i) {
                const at = (currentIndex + i) % root.options.length;
                if (root.options[at].toLocaleLowerCase().startsWith(letter)) {
                    currentIndex = at;
                    break;
                }
            }
            event.accepted = true;
        }

        delegate: Item {
            id: option

            required property int index
            required property string modelData

            width: list.width
            height: root.rowHeight
            Accessible.role: Accessible.ListItem
            Accessible.name: modelData
            Accessible.onPressAction: root.take(index)

            Rectangle {
                anchors.fill: parent
                anchors.leftMargin: 4
                anchors.rightMargin: 4
                radius: Theme.radiusSmall
                visible: option.ListView.isCurrentItem || hover.hovered
                color: option.ListView.isCurrentItem ? Theme.blue.soft : Theme.cardHover
            }
            Label {
                x: Theme.space3
                width: parent.width - 2 * Theme.space3
                anchors.verticalCenter: parent.verticalCenter
                text: option.modelData
                role: option.index === root.current ? Theme.rowTitle : Theme.body
                Accessible.ignored: true
            }
            HoverHandler {
                id: hover
            }
            TapHandler {
                gesturePolicy: TapHandler.ReleaseWithinBounds
                onTapped: root.take(option.index)
            }
        }
    }
}
