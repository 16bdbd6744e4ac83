import QtQuick
import Ambrel.Base
import Ambrel.Kit
import Ambrel.Telemetry

// The network's last minute, and the addresses of this computer.
LivePanel {
    id: root

    readonly property tileReading rates: area.face("network").reading
    readonly property RowList addresses: area.face("ipAddress").rows

    signal copyAsked(text: string)

    title: qsTr("Network")
    symbol: "arrow.up.arrow.down"
    implicitHeight: Scaled.px(330)
    needs: ["ipAddress"]

    headerItems: Row {
        anchors.verticalCenter: parent.verticalCenter
        visible: root.rates.unit !== ""
        spacing: Theme.space2

        NetworkRate {
            mark: "arrow.up"
            tone: Theme.violet
            figure: root.rates.value
            unit: root.rates.unit
        }
        NetworkRate {
            mark: "arrow.down"
            tone: Theme.blue
            figure: root.rates.secondValue
            unit: root.rates.secondUnit
        }
    }

    NetworkCurves {
        id: chart
        x: Theme.space4
        y: Theme.space2
        width: parent.width - 2 * Theme.space4
        height: Scaled.px(88)
        reading: root.rates
    }
    EmptyState {
        width: parent.width
        anchors.top: chart.bottom
        anchors.topMargin: Theme.space4
        visible: root.addresses.count === 0
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
        model: root.addresses

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
