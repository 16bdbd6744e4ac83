import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// Names at the left, their values at the right.
Column {
    id: root

    required property LiveRows rows

    spacing: 4

    Repeater {
        model: root.rows

        Item {
            id: line

            required property string title
            required property string figure

            width: root.width
            height: Theme.body.line
            Accessible.role: Accessible.StaticText
            Accessible.name: title + ", " + figure

            Label {
                width: parent.width - amount.width - Theme.space2
                text: line.title
                role: Theme.body
                color: Theme.ink2
                Accessible.ignored: true
            }
            Label {
                id: amount
                width: Math.min(implicitWidth, parent.width * 0.65)
                anchors.right: parent.right
                text: line.figure
                role: Theme.body
                Accessible.ignored: true
            }
        }
    }
}
