import QtQuick
import Ambrel.Kit
import Ambrel.Tools

// The result, or why there is none, with a button that copies it.
Item {
    id: root

    required property CalculatedModel model

    width: parent ? parent.width : 0
    height: Scaled.px(48)

    TipLabel {
        visible: root.model.face.fault === ""
        width: parent.width - copy.width - Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        text: root.model.face.result === "" ? "" : "= " + root.model.face.result
        role: Theme.value
        opacity: root.model.face.isWorking ? 0.5 : 1
    }
    Label {
        visible: root.model.face.fault !== ""
        width: parent.width - copy.width - Theme.space3
        anchors.verticalCenter: parent.verticalCenter
        text: root.model.face.fault
        color: Theme.orange.text
        wrapMode: Text.WordWrap
        maximumLineCount: 2
    }
    Button {
        id: copy

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        kind: Button.Primary
        symbol: "doc.on.doc"
        text: qsTr("Copy")
        tip: qsTr("Return also copies the result")
        enabled: root.model.face.result !== ""
        onClicked: root.model.accept()
    }
}
