import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The network's last minute, and the addresses of this computer.
Popover {
    id: root

    required property SystemMonitor system
    required property LiveModels readings

    signal copyAsked(text: string)

    title: qsTr("Network")
    symbol: "arrow.up.arrow.down"
    implicitHeight: 330

    headerItems: Row {
        anchors.verticalCenter: parent.verticalCenter
        visible: root.system.downloadFigure !== ""
        spacing: Theme.space2

        NetworkRate {
            symbol: "arrow.up"
            tone: Theme.violet
            figure: root.system.uploadFigure
            unit: root.system.uploadUnit
        }
        NetworkRate {
            symbol: "arrow.down"
            tone: Theme.blue
            figure: root.system.downloadFigure
            unit: root.system.downloadUnit
        }
    }

    LiveNeed {
        readings: root.readings
        parts: ["addresses"]
        active: root.open
    }
    NetworkCurves {
        id: chart
        x: Theme.space4
        y: Theme.space2
        width: parent.width - 2 * Theme.space4
        height: 88
        system: root.system
    }
    EmptyState {
        width: parent.width
        anchors.top: chart.bottom
        anchors.topMargin: Theme.space4
        visible: root.readings.addressRows.count === 0
        symbol: "network"
        title: qsTr("Not connected")
        sentence: qsTr("The addresses of this computer appear here.")
    }
    ListView {
        id: list
        anchors {
            fill: parent
            topMargin: chart.y + chart.height + Theme.space2
            leftMargin: Theme.space2
            rightMargin: Theme.space2
            bottomMargin: Theme.space2
        }
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: root.readings.addressRows

        delegate: ListRow {
            id: row

            required property string rowId
            required title
            required detail

            width: list.width
            symbol: "network"
            tip: qsTr("Copy")
            onClicked: root.copyAsked(row.rowId)

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                visible: row.hovered || row.activeFocus
                name: "doc.on.doc"
                size: 16
                color: Theme.ink2
            }
        }
    }
}
