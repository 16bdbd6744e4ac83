import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// Today's glasses of water. The ring adds one.
RingValueTile {
    required property WaterTracker water

    name: qsTr("Drink Water")
    symbol: "drop.fill"
    percent: Math.min(100, water.percent)
    tone: water.isGoalMet ? Theme.green : Theme.blue
    control: "plus"
    controlLabel: qsTr("Add a glass")
    figure: qsTr("%1 of %2").arg(water.count).arg(water.goal)
    detail: water.isGoalMet ? qsTr("goal met") : qsTr("glasses")
    onControlPressed: water.add()
}
