import QtQuick
import Ambrel.Base
import Ambrel.Kit
import Ambrel.Telemetry

// The processor's last minute, and who keeps it busy.
LivePanel {
    id: root

    readonly property tileReading reading: area.face("cpu").reading
    readonly property RowList processes: area.readings.processes

    title: qsTr("Processor")
    symbol: "cpu"
    fact: isNaN(root.reading.percent) ? "" : root.reading.figure
    implicitHeight: Scaled.px(420)
    needs: ["topApps"]

    Sparkline {
        id: chart
        x: Theme.space4
        y: Theme.space2
        width: parent.width - 2 * Theme.space4
        height: Scaled.px(72)
        capacity: 30
        values: root.reading.history
    }
    Label {
        id: heading
        x: Theme.space4
        anchors.top: chart.bottom
        anchors.topMargin: Theme.space3
        text: qsTr("Top Apps")
        role: Theme.captionStrong
        color: Theme.ink2
        Accessible.role: Accessible.Heading
    }
    TipLabel {
        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        anchors.top: heading.bottom
        anchors.topMargin: Theme.space2
        visible: root.processes.count === 0
        text: root.area.face("topApps").reading.message === "" ? qsTr("Measuring…") : root.area.face("topApps").reading.message
        role: Theme.body
        color: Theme.ink2
    }
    ListView {
        id: list
        anchors {
            left: parent.left
            right: parent.right
            top: heading.bottom
            topMargin: Theme.space1
            bottom: parent.bottom
            bottomMargin: Theme.space2
        }
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: true
        focus: true
        model: root.processes
        Accessible.role: Accessible.List
        Accessible.name: heading.text

        delegate: Item {
            id: line

            required property string title
            required property string detail
            required property string figure
            required property double percent

            width: list.width
            height: Scaled.px(26)
            Accessible.role: Accessible.ListItem
            Accessible.name: title + ", " + figure

            TipLabel {
                x: Theme.space4
                width: bar.x - x - Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                text: line.title
                role: Theme.listName
                Accessible.ignored: true
            }
            MeterBar {
                id: bar
                width: Scaled.px(72)
                height: 4
                anchors.right: amount.left
                anchors.verticalCenter: parent.verticalCenter
                value: line.percent
                color: Theme.blue.mark
                trackColor: Theme.track
            }
            TipLabel {
                id: amount
                width: Scaled.px(52)
                anchors.right: parent.right
                anchors.rightMargin: Theme.space4
                anchors.verticalCenter: parent.verticalCenter
                text: line.figure
                role: Theme.captionStrong
                horizontalAlignment: Text.AlignRight
                Accessible.ignored: true
            }
        }
        ScrollBar {
            view: list
            anchors {
                right: parent.right
                top: parent.top
                bottom: parent.bottom
            }
        }
    }
}
