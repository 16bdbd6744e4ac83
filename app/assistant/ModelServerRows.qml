import QtQuick
import Ambrel.Assistant
import Ambrel.Kit

// The settings of the language model behind Ask Buddy.
Column {
    id: root

    required property ModelServer server
    property bool isMistaken: false

    Component.onCompleted: server.look()

    Connections {
        target: root.server

        function onFaceChanged() {
            address.text = root.server.face.address;
            model.text = root.server.face.model;
        }
    }

    SwitchRow {
        title: qsTr("Answers by a language model")
        detail: root.server.face.status
        checked: root.server.face.isOn
        onToggled: checked => root.server.setOn(checked)
    }
    SectionRow {
        title: qsTr("Model server")
        detail: root.isMistaken ? qsTr("This is not an address. An example: 127.0.0.1:8080.") : qsTr("Any that speaks the OpenAI chat API. Empty: the usual ports of this computer.")
        detailColor: root.isMistaken ? Theme.red.text : Theme.ink2
        enabled: root.server.face.isOn

        Field {
            id: address

            width: 240
            text: root.server.face.address
            hint: qsTr("Address")
            onAccepted: root.isMistaken = !root.server.setAddress(text)
        }
    }
    SectionRow {
        visible: root.server.face.stranger !== ""
        title: qsTr("Send questions to %1?").arg(root.server.face.stranger)
        detail: qsTr("They would leave this computer, with the names of your projects and, from Disk Doctor, of files and folders.")

        Button {
            text: qsTr("Cancel")
            onClicked: root.server.setAddress("")
        }
        Button {
            kind: Button.Primary
            text: qsTr("Allow")
            onClicked: root.server.allow()
        }
    }
    SectionRow {
        title: qsTr("Model")
        detail: qsTr("Empty: the first that the server has")
        enabled: root.server.face.isOn

        Field {
            id: model

            width: 240
            text: root.server.face.model
            hint: qsTr("Name of the model")
            onAccepted: root.server.setModel(text)
        }
    }
}
