import QtQuick
import Ambrel.Base
import Ambrel.Developer
import Ambrel.Kit

// The state of the repository in detail.
Popover {
    id: root

    required property DeveloperArea area
    required property GitModel git
    required property Presentation presentation
    readonly property gitFace face: git.face
    readonly property bool hasFacts: face.isChosen && face.problem === "" && git.facts.count > 0

    title: face.isChosen ? face.name : qsTr("Git Status")
    symbol: "arrow.triangle.branch"
    fitted: hasFacts ? column : empty
    onAboutToOpen: git.look()

    Item {
        id: empty

        y: Theme.space2
        width: parent.width
        height: words.height + Theme.space3 + choose.height
        visible: !root.hasFacts

        EmptyState {
            id: words

            width: parent.width
            symbol: root.symbol
            title: !root.face.isChosen ? qsTr("No repository chosen") : root.face.problem !== "" ? root.face.problem : qsTr("Reading…")
            sentence: root.face.isChosen ? root.face.path : qsTr("Choose a folder to see its branch and its changes here.")
        }
        Button {
            id: choose

            anchors.top: words.bottom
            anchors.topMargin: Theme.space3
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Choose a Repository…")
            focus: !root.hasFacts
            onClicked: root.area.askForRepository()
        }
    }
    PanelColumn {
        id: column

        visible: root.hasFacts

        TipLabel {
            width: parent.width
            text: root.face.path
            role: Theme.small
            color: Theme.ink2
            elide: Text.ElideMiddle
        }
        DetailRows {
            width: parent.width
            model: root.git.facts
        }
        Row {
            spacing: Theme.space2

            Button {
                symbol: "folder"
                text: qsTr("Open Folder")
                focus: root.hasFacts
                onClicked: {
                    root.area.openRepository();
                    root.presentation.dismiss();
                }
            }
            Button {
                text: qsTr("Choose Another…")
                onClicked: root.area.askForRepository()
            }
        }
    }
}
