import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// Today's glasses of water. The ring adds one.
RingValueTile {
    required property WaterTracker water

    panel: Qt.resolvedUrl("WaterPanel.qml")
    percent: Math.min(100, water.face.percent)
    tone: water.face.isGoalMet ? Theme.green : Theme.blue
    control: "plus"
    controlLabel: qsTr("Add a glass")
    figure: qsTr("%1 of %2").arg(water.face.count).arg(water.face.goal)
    detail: water.face.isGoalMet ? qsTr("goal met") : qsTr("glasses")
    onControlPressed: water.add()
}
