import QtQuick
import Ambrel.Base
import Ambrel.Kit
import Ambrel.Telemetry

// The three programs that use the processor most.
LiveTile {
    id: root

    readonly property RowList rows: face.rows
    readonly property bool hasList: !isSmall && !hasMessage && rows.count > 0

    panel: Qt.resolvedUrl("ProcessorPanel.qml")
    name: isSmall && !hasMessage && rows.count > 0 ? reading.subLine : caption
    hasHeader: !isSmall && !hasList
    hasFigures: !hasList
    label: title + ", " + (hasList || hasMessage ? reading.tip : reading.spoken)

    Column {
        visible: root.hasList
        width: parent.width

        Repeater {
            model: root.hasList ? root.rows : null

            Item {
                id: line

                required property string title
                required property string figure

                width: root.inner.width
                height: Math.floor(root.inner.height / 3)

                Label {
                    width: parent.width - amount.width - Theme.space2
                    height: parent.height
                    text: line.title
                    role: Theme.smallMedium
                    Accessible.ignored: true
                }
                Label {
                    id: amount
                    anchors.right: parent.right
                    height: parent.height
                    text: line.figure
                    role: Theme.small
                    color: Theme.ink2
                    Accessible.ignored: true
                }
            }
        }
    }
}
