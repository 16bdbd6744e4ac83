import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The three programs that use the processor most.
LiveTile {
    id: root

    required property LiveRows rows
    readonly property bool hasList: !isSmall && !hasMessage && rows.count > 0

    name: isSmall && !hasMessage && rows.count > 0 ? reading.subLine : qsTr("Top Apps")
    symbol: "list.number"
    span: TileFrame.Large
    hasHeader: !isSmall && !hasList
    hasFigures: !hasList
    label: qsTr("Top Apps, %1").arg(hasList || hasMessage ? reading.tip : reading.spoken)

    Column {
        visible: root.hasList
        width: parent.width

        Repeater {
            model: root.hasList ? root.rows : null

            Item {
                id: line

                required property string title
                required property string figure

                width: root.area.width
                height: Math.floor(root.area.height / 3)

                Label {
                    width: parent.width - amount.width - Theme.space2
                    height: parent.height
                    text: line.title
                    role: Theme.smallMedium
                    hasTip: false
                    Accessible.ignored: true
                }
                Label {
                    id: amount
                    anchors.right: parent.right
                    height: parent.height
                    text: line.figure
                    role: Theme.small
                    color: Theme.ink2
                    hasTip: false
                    Accessible.ignored: true
                }
            }
        }
    }
}
