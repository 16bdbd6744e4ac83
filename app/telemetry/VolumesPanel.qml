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
    implicitHeight: Scaled.px(276)

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

        delegate: PartRow {
            id: row

            required property string rowId
            required property double percent
            required property bool isBusy
            required property bool hasFailed
            required property bool hasAction

            width: list.width
            height: Scaled.px(64)
            detailColor: hasFailed ? Theme.red.text : Theme.ink2
            used: percent

            Button {
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
