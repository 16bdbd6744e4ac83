import QtQuick
import Ambrel.Kit
import Ambrel.Usage

// The settings row of the user's own budget for Claude, which stands in where Claude's own percentages are not known.
SectionRow {
    id: root

    required property ClaudeBudgetModel budget

    title: qsTr("Your own Claude budget")
    detail: qsTr("Without Claude's own percentages, Buddy speaks up when a 5-hour window has used 80% of it.")

    IconButton {
        symbol: "minus"
        label: qsTr("%1: less").arg(root.title)
        enabled: !root.budget.isOff
        onClicked: root.budget.step(-1)
    }
    Label {
        width: Math.round(96 * Theme.textScale)
        anchors.verticalCenter: parent.verticalCenter
        text: root.budget.text
        role: Theme.listName
        horizontalAlignment: Text.AlignHCenter
        Accessible.name: root.title + ", " + text
    }
    IconButton {
        symbol: "plus"
        label: qsTr("%1: more").arg(root.title)
        onClicked: root.budget.step(1)
    }
}
