import QtQuick
import Ambrel.Kit
import Ambrel.Time

// A month to page through: the wheel and the buttons turn the page alone. Its days are one stop of the keyboard: arrows
// move the chosen day, by Page keys it moves by a month, and with Shift by a year; Home goes to today.
FocusScope {
    id: root

    required property MonthModel month
    readonly property int cell: Scaled.px(34)
    readonly property int weekWidth: Scaled.px(26)
    // A part of a turn of the wheel that has not been enough for a page.
    property real turned: 0

    implicitWidth: weekWidth + 7 * cell
    implicitHeight: days.y + days.height
    Keys.onPressed: event => {
        const isLarge = event.modifiers & Qt.ShiftModifier;
        const days = {
            [Qt.Key_Left]: -1,
            [Qt.Key_Right]: 1,
            [Qt.Key_Up]: -7,
            [Qt.Key_Down]: 7
        }[event.key];
        const pages = {
            [Qt.Key_PageUp]: isLarge ? -12 : -1,
            [Qt.Key_PageDown]: isLarge ? 12 : 1
        }[event.key];
        if (days !== undefined)
            month.moveDays(days);
        else if (pages !== undefined)
            month.moveMonths(pages);
        else if (event.key === Qt.Key_Home)
            month.goToToday();
        else
            return;
        event.accepted = true;
    }

    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => {
            root.turned += event.angleDelta.y;
            if (Math.abs(root.turned) < 120)
                return;
            root.month.turnPage(root.turned > 0 ? -1 : 1);
            root.turned = 0;
        }
    }

    Item {
        id: head

        width: parent.width
        height: Math.max(32, Theme.panelTitle.line)

        TipLabel {
            x: Theme.space2
            width: steps.x - x
            text: root.month.face.title
            role: Theme.panelTitle
            anchors.verticalCenter: parent.verticalCenter
        }
        Row {
            id: steps

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter

            Button {
                visible: !root.month.face.isAtToday
                kind: Button.Quiet
                size: 28
                text: qsTr("Today")
                onClicked: root.month.goToToday()
            }
            IconButton {
                symbol: "chevron.left"
                label: qsTr("The month before")
                onClicked: root.month.turnPage(-1)
            }
            IconButton {
                symbol: "chevron.right"
                label: qsTr("The next month")
                onClicked: root.month.turnPage(1)
            }
        }
    }
    Row {
        id: letters

        x: root.weekWidth
        anchors.top: head.bottom
        anchors.topMargin: Theme.space1

        Repeater {
            model: root.month.face.letters

            Label {
                required property string modelData

                width: root.cell
                text: modelData
                role: Theme.caption
                color: Theme.ink3
                horizontalAlignment: Text.AlignHCenter
                Accessible.ignored: true
            }
        }
    }
    Column {
        anchors.top: days.top

        Repeater {
            model: root.month.face.weeks

            Label {
                required property int modelData

                width: root.weekWidth
                height: root.cell
                text: modelData
                role: Theme.subLine
                color: Theme.ink3
                horizontalAlignment: Text.AlignHCenter
                Accessible.name: qsTr("Week %1").arg(modelData)
            }
        }
    }
    Item {
        id: days

        x: root.weekWidth
        width: 7 * root.cell
        height: 6 * root.cell
        anchors.top: letters.bottom
        anchors.topMargin: 2
        focus: true
        activeFocusOnTab: true
        Accessible.role: Accessible.Table
        Accessible.name: root.month.face.chosenName + ", " + root.month.face.chosenDetail
        Accessible.focusable: true

        Grid {
            id: grid

            columns: 7

            Repeater {
                model: root.month.days

                Item {
                    id: place

                    required property dayCell row
                    readonly property bool isChosen: row.key === root.month.face.chosen

                    width: root.cell
                    height: root.cell
                    Accessible.role: Accessible.Cell
                    Accessible.name: row.name
                    Accessible.selected: isChosen
                    Accessible.onPressAction: root.month.choose(place.row.key)

                    Rectangle {
                        anchors.fill: parent
                        anchors.margins: 1
                        visible: place.isChosen || hover.hovered
                        radius: Theme.radiusButton
                        color: place.isChosen ? Theme.blue.soft : Theme.card
                        border.width: place.isChosen ? 1 : 0
                        border.color: Theme.blue.mark
                    }
                    DayNumber {
                        anchors.centerIn: parent
                        size: 26
                        day: place.row
                        isFaint: !place.row.isInMonth
                    }
                    HoverHandler {
                        id: hover
                    }
                    TapHandler {
                        gesturePolicy: TapHandler.ReleaseWithinBounds
                        onTapped: root.month.choose(place.row.key)
                    }
                }
            }
        }
        FocusRing {
            gap: 0
        }
    }
}
