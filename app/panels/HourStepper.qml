import QtQuick
import Ambrel.Kit

// An hour of the day, one step back or on; after 23 comes 0.
Row {
    id: root

    property string label
    property int hour: 0

    // Without seconds, which some locales' short times have.
    readonly property string format: Qt.locale().timeFormat(Locale.ShortFormat).replace(":ss", "")

    signal chosen(int hour)

    spacing: Theme.space1

    IconButton {
        symbol: "minus"
        label: qsTr("%1: an hour earlier").arg(root.label)
        onClicked: root.chosen((root.hour + 23) % 24)
    }
    Label {
        width: Math.round(72 * Theme.textScale)
        anchors.verticalCenter: parent.verticalCenter
        text: new Date(2000, 0, 1, root.hour, 0).toLocaleTimeString(Qt.locale(), root.format)
        role: Theme.listName
        horizontalAlignment: Text.AlignHCenter
        Accessible.name: root.label + ", " + text
    }
    IconButton {
        symbol: "plus"
        label: qsTr("%1: an hour later").arg(root.label)
        onClicked: root.chosen((root.hour + 1) % 24)
    }
}
