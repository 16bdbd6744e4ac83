import QtQuick
import Ambrel.Kit
import Ambrel.Time

// A chosen city: its time, and buttons that move and remove it.
ListRow {
    id: root

    required property CityList cities
    required property string rowId
    property string figure
    property bool isFirst: false
    // The user's own is always there.
    property bool isOwn: false

    label: title + ", " + figure + ", " + detail
    activeFocusOnTab: false
    isPressable: false

    Label {
        text: root.figure
        role: Theme.rowTitle
        anchors.verticalCenter: parent.verticalCenter
        Accessible.ignored: true
    }
    Row {
        visible: !root.isOwn
        anchors.verticalCenter: parent.verticalCenter

        IconButton {
            symbol: "arrow.up"
            label: qsTr("Move %1 up").arg(root.title)
            enabled: !root.isFirst
            onClicked: root.cities.moveUp(root.rowId)
        }
        IconButton {
            symbol: "trash"
            label: qsTr("Remove %1").arg(root.title)
            onClicked: root.cities.remove(root.rowId)
        }
    }
}
