import QtQuick
import Ambrel.Kit

// A whole number with a button on each side, which repeats while it is held. Up and Down change it too; `stepped` says
// which is wanted.
FocusScope {
    id: root

    required property int value
    property int from: 0
    property int to: 100
    property int step: 1
    // After the last comes the first again.
    property bool wraps: false
    property string unit
    // What is shown for the value, and how much room it has.
    property string text: value + (unit === "" ? "" : " " + unit)
    property int textWidth: 78
    required property string label

    signal stepped(int value)

    function move(by: int) {
        // A number between two steps moves to the next step.
        const next = by > 0 ? (Math.floor(value / step) + 1) * step : (Math.ceil(value / step) - 1) * step;
        const wanted = !wraps ? Math.max(from, Math.min(to, next)) : next > to ? from : next < from ? to : next;
        if (wanted !== value)
            stepped(wanted);
    }

    implicitWidth: row.width
    implicitHeight: Scaled.px(32)
    activeFocusOnTab: true
    Accessible.role: Accessible.SpinBox
    Accessible.name: label + ", " + text
    Accessible.focusable: true
    Accessible.onIncreaseAction: root.move(1)
    Accessible.onDecreaseAction: root.move(-1)
    Keys.onUpPressed: root.move(1)
    Keys.onDownPressed: root.move(-1)

    Timer {
        id: held

        // The repeat has moved the value, so the release must not move it again.
        property bool hasMoved: false

        interval: hasMoved ? 90 : 450
        repeat: true
        running: less.down || more.down
        onRunningChanged: if (running)
            hasMoved = false
        onTriggered: {
            hasMoved = true;
            root.move(more.down ? 1 : -1);
        }
    }

    Row {
        id: row
        height: root.height
        spacing: 2

        IconButton {
            id: less
            symbol: "minus"
            label: qsTr("Less")
            tip: ""
            activeFocusOnTab: false
            enabled: root.wraps || root.value > root.from
            anchors.verticalCenter: parent.verticalCenter
            onClicked: if (!held.hasMoved)
                root.move(-1)
        }
        TipLabel {
            width: Scaled.px(root.textWidth)
            text: root.text
            role: Theme.rowTitle
            horizontalAlignment: Text.AlignHCenter
            anchors.verticalCenter: parent.verticalCenter
            Accessible.ignored: true
        }
        IconButton {
            id: more
            symbol: "plus"
            label: qsTr("More")
            tip: ""
            activeFocusOnTab: false
            enabled: root.wraps || root.value < root.to
            anchors.verticalCenter: parent.verticalCenter
            onClicked: if (!held.hasMoved)
                root.move(1)
        }
    }
    FocusRing {
        targetRadius: Theme.radiusSmall
    }
}
