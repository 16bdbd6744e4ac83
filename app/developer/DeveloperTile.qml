import QtQuick
import Ambrel.Developer
import Ambrel.Kit

// How many of its list run, or why there is no list.
TileFrame {
    id: root

    required property DeveloperList entries
    property toolListFace face: entries.face

    problem: face.problem
    value: face.value === "" ? "…" : isSmall ? face.count : face.value
    valueRole: Theme.rowTitle
    valueColor: face.isFaulty ? Theme.red.text : face.count > 0 ? Theme.ink : Theme.ink2
    subLine: face.isWorking ? qsTr("Looking…") : face.subLine
}
