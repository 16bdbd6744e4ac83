import QtQuick
import Ambrel.Base
import Ambrel.Kit
import Ambrel.Stores

// The newest downloads, and what is still loading.
Popover {
    id: root

    required property StoresArea area
    required property FolderModel downloads
    required property Presentation presentation
    readonly property folderFace face: downloads.face

    implicitWidth: Scaled.px(380)
    implicitHeight: Scaled.px(440)
    title: qsTr("Downloads")
    symbol: "arrow.down.circle"
    onAboutToOpen: downloads.look()
    fact: face.problem !== "" ? "" : face.loadingText !== "" ? face.loadingText : face.countText

    headerItems: IconButton {
        anchors.verticalCenter: parent.verticalCenter
        symbol: "arrow.up.forward.square"
        label: qsTr("Open the folder")
        visible: root.face.problem === ""
        onClicked: {
            root.downloads.openFolder();
            root.presentation.dismiss();
        }
    }

    EmptyState {
        anchors.centerIn: parent
        visible: root.face.problem !== "" || root.face.isEmpty
        width: parent.width
        symbol: "arrow.down.circle"
        title: root.face.problem !== "" ? qsTr("Not available") : qsTr("Nothing here")
        sentence: root.face.problem !== "" ? root.face.problem + "." : qsTr("What you download appears here.")
    }
    FileRows {
        anchors.fill: parent
        anchors.margins: Theme.space2
        focus: true
        area: root.area
        folder: root.downloads
        onOpened: root.presentation.dismiss()
    }
}
