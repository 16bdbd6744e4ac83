import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// Glasses, goal and reminders.
Popover {
    id: root

    required property WaterTracker water

    title: qsTr("Drink Water")
    symbol: "drop.fill"
    implicitHeight: 302

    Meter {
        id: meter
        x: Theme.space4
        y: Theme.space2
        width: parent.width - 2 * Theme.space4
        value: Math.min(100, root.water.face.percent)
        tone: root.water.face.isGoalMet ? Theme.green : Theme.blue
        thickness: 6
        figure: qsTr("%1 of %2").arg(root.water.face.count).arg(root.water.face.goal)
        figureWidth: 56
    }
    Row {
        id: buttons
        x: Theme.space4
        anchors.top: meter.bottom
        anchors.topMargin: Theme.space3
        spacing: Theme.space2

        Button {
            kind: Button.Primary
            symbol: "plus"
            focus: true
            text: qsTr("Add a glass")
            onClicked: root.water.add()
        }
        Button {
            symbol: "minus"
            text: qsTr("Remove one")
            enabled: root.water.face.count > 0
            onClicked: root.water.remove()
        }
    }
    Section {
        id: section
        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        anchors.top: buttons.bottom
        anchors.topMargin: Theme.space3

        StepperRow {
            title: qsTr("Goal")
            value: root.water.face.goal
            to: 30
            unit: qsTr("glasses")
            onStepped: value => root.water.setGoal(value)
        }
        SwitchRow {
            title: qsTr("Reminders")
            detail: root.water.face.nextText
            checked: root.water.face.remindersOn
            onToggled: checked => root.water.setRemindersOn(checked)
        }
        StepperRow {
            title: qsTr("Remind after")
            visible: root.water.face.remindersOn
            height: visible ? implicitHeight : 0
            value: root.water.face.intervalMinutes
            from: 5
            to: 480
            step: 5
            unit: qsTr("min")
            onStepped: value => root.water.setIntervalMinutes(value)
        }
    }
}
