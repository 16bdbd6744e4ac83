import QtQuick
import Ambrel.Kit

// What is missing, and the way to add it.
Column {
    id: root

    property string problem

    signal settingsAsked

    spacing: Theme.space3

    EmptyState {
        width: parent.width
        symbol: "calendar.badge.exclamationmark"
        title: root.problem
        sentence: qsTr("Those of khal, vdirsyncer, GNOME and KDE are found by themselves. Others are added in the settings.")
    }
    Button {
        anchors.horizontalCenter: parent.horizontalCenter
        symbol: "plus"
        text: qsTr("Add a calendar…")
        onClicked: root.settingsAsked()
    }
}
