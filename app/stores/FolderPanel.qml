import QtQuick
import Ambrel.Base
import Ambrel.Kit
import Ambrel.Stores

// The newest items of the folder: a click opens one, and a drag takes it along.
Popover {
    id: root

    required property StoresArea area
    required property ChosenFolder chosenFolder
    required property Presentation presentation
    readonly property folderFace face: chosenFolder.face

    implicitWidth: Scaled.px(380)
    implicitHeight: Scaled.px(440)
    title: face.isChosen ? face.name : qsTr("Folder")
    symbol: "folder"
    onAboutToOpen: chosenFolder.look()
    fact: face.problem === "" ? face.countText : ""

    headerItems: [
        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            symbol: "gearshape.fill"
            label: qsTr("Choose another folder")
            visible: root.face.isChosen
            onClicked: root.area.askForFolder()
        },
        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            symbol: "arrow.up.forward.square"
            label: qsTr("Open the folder")
            visible: root.face.isChosen && root.face.problem === ""
            onClicked: {
                root.chosenFolder.openFolder();
                root.presentation.dismiss();
            }
        }
    ]

    Column {
        anchors.centerIn: parent
        width: parent.width
        spacing: Theme.space3
        visible: !root.face.isChosen || root.face.problem !== "" || root.face.isEmpty

        EmptyState {
            width: parent.width
            symbol: "folder"
            title: !root.face.isChosen ? qsTr("No folder chosen") : root.face.problem !== "" ? qsTr("Not available") : qsTr("Nothing here")
            sentence: !root.face.isChosen ? qsTr("Choose a folder to see its newest files here.") : root.face.problem !== "" ? root.face.problem + "." : qsTr("Files that come into the folder appear here.")
        }
        Button {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: !root.face.isChosen || root.face.problem !== ""
            text: qsTr("Choose a Folder…")
            focus: true
            onClicked: root.area.askForFolder()
        }
    }
    FileRows {
        anchors.fill: parent
        anchors.margins: Theme.space2
        focus: true
        area: root.area
        folder: root.chosenFolder
        onOpened: root.presentation.dismiss()
    }
}
