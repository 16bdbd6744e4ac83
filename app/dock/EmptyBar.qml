import QtQuick
import Ambrel.Context
import Ambrel.Dock
import Ambrel.Kit

// A bar without tiles: a sentence and a next step.
Row {
    id: root

    required property WidgetContext context

    leftPadding: Theme.space4
    rightPadding: Theme.space3
    spacing: Theme.space3

    Label {
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("No tiles yet")
        role: Theme.body
        color: Theme.ink2
    }
    Button {
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("Customize…")
        onClicked: root.context.openCustomize()
    }
}
