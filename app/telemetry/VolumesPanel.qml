import QtQuick
import Ambrel.Base
import Ambrel.Kit
import Ambrel.Telemetry

// External drives, each with its Eject button and what came of it.
LivePanel {
    id: root

    readonly property RowList drives: area.face("volumes").rows

    title: qsTr("Volumes")
    symbol: "externaldrive"
    implicitHeight: 276

    EmptyState {
        width: parent.width
        anchors.centerIn: parent
        visible: root.drives.count === 0
        symbol: "externaldrive"
        title: qsTr("No external drives")
        sentence: qsTr("Connect a drive to see it here")
    }
    ListView {
        id: list
        anchors.fill: parent
        anchors.margins: Theme.space2
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: root.drives

        delegate: Item {
            id: row

            required property string rowId
            required property string title
            required property string detail
            required property string symbol
            required property double percent
            required property bool isBusy
            required property bool hasFailed
            required property bool hasAction

            width: list.width
            height: 64
            Accessible.role: Accessible.ListItem
            Accessible.name: title + ", " + detail

            Symbol {
                id: icon
                x: Theme.space2
                y: 12
                name: row.symbol
                size: 20
                color: Theme.ink2
            }
            Column {
                anchors {
                    left: icon.right
                    leftMargin: Theme.space3
                    right: button.left
                    rightMargin: Theme.space3
                    verticalCenter: parent.verticalCenter
                }
                spacing: 2

                TipLabel {
                    width: parent.width
                    text: row.title
                    role: Theme.rowTitle
                    Accessible.ignored: true
                }
                TipLabel {
                    width: parent.width
                    text: row.detail
                    role: Theme.small
                    color: row.hasFailed ? Theme.red.text : Theme.ink2
                    Accessible.ignored: true
                }
                MeterBar {
                    visible: !isNaN(row.percent)
                    width: parent.width
                    height: 4
                    value: row.percent
                    color: Theme.gaugeTone(row.percent, Theme.teal).mark
                    trackColor: Theme.track
                }
            }
            Button {
                id: button
                anchors.right: parent.right
                anchors.rightMargin: Theme.space2
                anchors.verticalCenter: parent.verticalCenter
                size: 28
                symbol: "eject"
                text: qsTr("Eject")
                label: qsTr("Eject %1").arg(row.title)
                visible: row.hasAction
                enabled: !row.isBusy
                onClicked: root.area.readings.eject(row.rowId)
            }
        }
    }
}
