import QtQuick
import Ambrel.Focus
import Ambrel.Kit
import Ambrel.Model

// Glasses, goal and reminders.
Popover {
    id: root

    required property WaterTracker water

    title: qsTr("Drink Water")
    symbol: "drop.fill"
    fitted: column

    PanelColumn {
        id: column

        Meter {
            width: parent.width
            value: Math.min(100, root.water.face.percent)
            tone: root.water.face.isGoalMet ? Theme.green : Theme.blue
            thickness: 6
            figure: qsTr("%1 of %2").arg(root.water.face.count).arg(root.water.face.goal)
            figureWidth: Scaled.px(56)
        }
        Row {
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
            SettingRow {
                key: "waterGoal"
                title: qsTr("Goal")
                unit: qsTr("glasses")
            }
            SettingRow {
                key: "waterReminders"
                title: qsTr("Reminders")
                detail: root.water.face.nextText
            }
            SettingRow {
                key: "waterInterval"
                title: qsTr("Remind after")
                visible: root.water.face.remindersOn
                step: 5
                unit: qsTr("min")
            }
        }
    }
}
