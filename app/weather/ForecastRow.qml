import QtQuick
import Ambrel.Kit

// A forecast as columns of time, picture and temperature, or high and low; as many as fit. An old one says its age beside them.
Item {
    id: root

    required property var entries
    // Each entry has a low beside its figure.
    property bool hasLows: false
    required property string staleSince
    required property real markOpacity
    readonly property real columnWidth: 31
    readonly property int shown: Math.min(entries.length, Math.floor((width - (age.visible ? age.width : 0)) / columnWidth))

    Row {
        id: columns

        Repeater {
            model: root.entries.slice(0, root.shown)

            Item {
                id: column

                required property var modelData

                width: (root.width - (age.visible ? age.width : 0)) / Math.max(1, root.shown)
                height: root.height

                Label {
                    width: parent.width
                    text: column.modelData.time
                    role: Theme.subLine
                    color: Theme.ink2
                    horizontalAlignment: Text.AlignHCenter
                    Accessible.ignored: true
                }
                WeatherPicture {
                    name: column.modelData.symbol
                    size: root.hasLows ? 16 : 18
                    opacity: root.markOpacity
                    anchors.horizontalCenter: parent.horizontalCenter
                    y: root.hasLows ? low.height - 2 : (parent.height - height) / 2
                }
                Label {
                    width: parent.width
                    text: column.modelData.figure
                    role: Theme.captionStrong
                    color: root.staleSince === "" ? Theme.ink : Theme.ink2
                    horizontalAlignment: Text.AlignHCenter
                    anchors.bottom: root.hasLows ? low.top : parent.bottom
                    anchors.bottomMargin: root.hasLows ? -2 : 0
                    Accessible.ignored: true
                }
                Label {
                    id: low
                    visible: root.hasLows
                    width: parent.width
                    text: column.modelData.low
                    role: Theme.subLine
                    color: Theme.ink2
                    horizontalAlignment: Text.AlignHCenter
                    anchors.bottom: parent.bottom
                    Accessible.ignored: true
                }
            }
        }
    }
    Item {
        id: age

        visible: root.staleSince !== ""
        width: Scaled.px(52)
        height: root.height
        anchors.right: parent.right

        Symbol {
            name: "clock.arrow.circlepath"
            size: 14
            color: Theme.orange.text
            anchors.horizontalCenter: parent.horizontalCenter
        }
        Label {
            y: Scaled.px(16)
            width: parent.width
            text: root.staleSince
            role: Theme.subLine
            color: Theme.orange.text
            wrapMode: Text.WordWrap
            maximumLineCount: 2
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
    }
}
