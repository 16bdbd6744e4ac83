import QtQuick
import Ambrel.Developer
import Ambrel.Kit

// The branch of the repository, its distance from the remote branch, and its changes.
TileFrame {
    id: root

    required property GitModel git
    property gitFace face: git.face

    panel: Qt.resolvedUrl("GitPanel.qml")
    problem: face.problem
    name: face.isChosen ? face.name : caption
    value: face.isChosen ? face.branch : isSmall ? "" : qsTr("No repository")
    valueRole: Theme.rowTitle
    valueColor: face.needsUser ? Theme.orange.text : face.isChosen ? Theme.ink : Theme.ink2
    subLine: face.isChosen ? face.summary : qsTr("Click to choose")
    tip: face.isChosen && !isUnavailable ? label : ""
    label: isSmall && face.isChosen && !isUnavailable ? spoken + ", " + face.summary : spoken
}
