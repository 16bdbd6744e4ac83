import QtQuick
import Ambrel.Kit
import Ambrel.Notes

// Pins and highlights over the capture, the area that is being drawn, and the keyboard's cross.
Item {
    id: root

    required property ScreenNotesModel notes
    required property CaptureView view
    property rect drawn
    property point cross
    property bool showsCross: false
    property bool canSelect: false

    function xOf(at: real): real {
        return root.view.frame.x + at * root.view.frame.width;
    }
    function yOf(at: real): real {
        return root.view.frame.y + at * root.view.frame.height;
    }
    clip: true

    Repeater {
        model: root.notes.highlights

        Rectangle {
            id: mark

            required property int index
            required property rect box
            required property color tone

            x: root.xOf(box.x)
            y: root.yOf(box.y)
            width: box.width * root.view.frame.width
            height: box.height * root.view.frame.height
            radius: Theme.radiusHighlight
            color: Qt.rgba(tone.r, tone.g, tone.b, 0.12)
            border.width: 2
            border.color: tone
            Accessible.role: Accessible.Graphic
            Accessible.name: qsTr("Marked area %1").arg(index + 1)

            IconButton {
                anchors.left: parent.right
                anchors.bottom: parent.top
                anchors.margins: -size / 2
                visible: root.canSelect
                size: 22
                symbolSize: 14
                symbol: "xmark"
                label: qsTr("Remove marked area %1").arg(mark.index + 1)
                onClicked: root.notes.removeHighlight(mark.index)

                Rectangle {
                    z: -1
                    anchors.fill: parent
                    radius: width / 2
                    color: Theme.panel
                    border.width: 1
                    border.color: Theme.over(Theme.lineStrong, Theme.panel)
                }
            }
        }
    }
    Rectangle {
        visible: root.drawn.width > 0 || root.drawn.height > 0
        x: root.xOf(root.drawn.x)
        y: root.yOf(root.drawn.y)
        width: root.drawn.width * root.view.frame.width
        height: root.drawn.height * root.view.frame.height
        color: Qt.rgba(Theme.accent.r, Theme.accent.g, Theme.accent.b, 0.15)
        border.width: 1
        border.color: Theme.accent
    }
    Repeater {
        model: root.notes.pins

        CapturePin {
            notes: root.notes
            view: root.view
        }
    }
    Item {
        visible: root.showsCross
        x: root.xOf(root.cross.x)
        y: root.yOf(root.cross.y)

        Repeater {
            model: [[25, 5], [5, 25], [23, 3], [3, 23]]

            Rectangle {
                required property int index
                required property var modelData

                anchors.centerIn: parent
                width: modelData[0]
                height: modelData[1]
                color: index < 2 ? "white" : Theme.accentPressed
            }
        }
    }
}
