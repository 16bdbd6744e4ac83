import QtQuick
import Ambrel.Kit
import Ambrel.Stores

// The count, up and down, and back to nothing.
Popover {
    id: root

    required property TallyCounter tally

    implicitWidth: Scaled.px(280)
    fitted: column
    title: qsTr("Tally Counter")
    symbol: "plus.circle"

    PanelColumn {
        id: column

        Item {
            width: parent.width
            height: count.height

            IconButton {
                anchors.left: parent.left
                anchors.verticalCenter: parent.verticalCenter
                size: 36
                symbol: "minus"
                label: qsTr("One less")
                enabled: !root.tally.face.isZero
                onClicked: root.tally.add(-1)
            }
            Label {
                id: count
                anchors.centerIn: parent
                width: parent.width - 96
                text: root.tally.face.text
                role: Theme.timer
                horizontalAlignment: Text.AlignHCenter
                Accessible.role: Accessible.StaticText
            }
            IconButton {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                size: 36
                symbol: "plus"
                label: qsTr("One more")
                focus: true
                onClicked: root.tally.add(1)
            }
        }
        Button {
            width: parent.width
            symbol: root.tally.face.canUndo && root.tally.face.isZero ? "arrow.uturn.backward" : "arrow.counterclockwise"
            text: root.tally.face.canUndo && root.tally.face.isZero ? qsTr("Undo the reset") : qsTr("Reset")
            enabled: !root.tally.face.isZero || root.tally.face.canUndo
            onClicked: root.tally.face.canUndo && root.tally.face.isZero ? root.tally.undo() : root.tally.reset()
        }
    }
}
