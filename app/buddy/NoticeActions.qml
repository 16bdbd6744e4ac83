import QtQuick
import Ambrel.Buddy
import Ambrel.Kit

// The actions of a notice: at most two buttons, the first one primary.
Row {
    id: root

    required property var actions
    // The button that is chosen from the tile by keyboard; -1 for none.
    property int choice: -1
    property int size: 32

    signal perform(int action)

    spacing: Theme.space2

    Repeater {
        model: root.actions

        Button {
            id: button

            required property int index
            required property string modelData

            text: modelData
            size: root.size
            kind: index === 0 ? Button.Primary : Button.Secondary
            onClicked: root.perform(index)

            FocusRing {
                shown: root.choice === button.index
                targetRadius: root.size <= 28 ? Theme.radiusSmall : Theme.radiusButton
            }
        }
    }
}
