import QtQuick
import Ambrel.Kit
import Ambrel.Tools

// A text and its translation, below their languages.
Popover {
    id: root

    required property TranslateModel translator
    property bool hasServer: false
    property bool isMistaken: false

    title: qsTr("Quick Translate")
    symbol: "translate"
    implicitWidth: Scaled.px(480)
    implicitHeight: Scaled.px(452)
    fact: translator.face.isWorking ? qsTr("Translating…") : ""

    onAboutToOpen: {
        hasServer = false;
        translator.begin();
    }
    onOpenChanged: if (!open && translator)
        translator.end()

    headerItems: IconButton {
        anchors.verticalCenter: parent ? parent.verticalCenter : undefined
        label: qsTr("Translation server")
        symbol: "slider.horizontal.3"
        isOn: root.hasServer
        onClicked: {
            root.hasServer = !root.hasServer;
            address.text = root.translator.face.address;
        }
    }

    Connections {
        target: root.translator

        function onFaceChanged() {
            source.show(root.translator.face.input);
            output.show(root.translator.face.output);
        }
    }
    Connections {
        target: source.input.Keys

        function onPressed(event: var) {
            const isReturn = event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
            event.accepted = isReturn && (event.modifiers & Qt.ControlModifier) !== 0;
            if (event.accepted)
                root.translator.translate();
        }
    }
    Item {
        anchors.fill: parent
        anchors.leftMargin: Theme.space4
        anchors.rightMargin: Theme.space4
        anchors.topMargin: Theme.space2
        anchors.bottomMargin: Theme.space4

        Row {
            id: languages

            width: parent.width
            spacing: Theme.space2
            z: 1

            ChoiceField {
                width: (parent.width - swap.width - 2 * parent.spacing) / 2
                name: qsTr("From")
                options: root.translator.sources
                current: root.translator.face.source
                onChosen: index => root.translator.setSource(index)
            }
            IconButton {
                id: swap

                anchors.verticalCenter: parent.verticalCenter
                symbol: "arrow.left.arrow.right"
                label: qsTr("Swap the languages")
                enabled: root.translator.face.source > 0 || root.translator.face.detected !== ""
                onClicked: root.translator.swap()
            }
            ChoiceField {
                width: (parent.width - swap.width - 2 * parent.spacing) / 2
                name: qsTr("To")
                options: root.translator.targets
                current: root.translator.face.target
                onChosen: index => root.translator.setTarget(index)
            }
        }
        Column {
            id: server

            anchors.top: languages.bottom
            anchors.topMargin: Theme.space2
            width: parent.width
            spacing: Theme.space2
            visible: root.hasServer || root.translator.face.stranger !== ""

            Field {
                id: address

                visible: root.hasServer
                width: parent.width
                hint: qsTr("Address of a translation server; leave empty for this computer")
                onAccepted: root.isMistaken = !root.translator.setAddress(text)
                onTextChanged: root.isMistaken = false
            }
            Label {
                visible: root.isMistaken
                width: parent.width
                text: qsTr("This is not an address. An example: 127.0.0.1:5000.")
                role: Theme.small
                color: Theme.red.text
            }
            Item {
                visible: root.translator.face.stranger !== ""
                width: parent.width
                height: allow.height

                Label {
                    width: parent.width - cancel.width - allow.width - 3 * Theme.space2
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("Send your texts to %1? They would leave this computer.").arg(root.translator.face.stranger)
                    role: Theme.small
                    wrapMode: Text.WordWrap
                }
                Button {
                    id: cancel

                    anchors.right: allow.left
                    anchors.rightMargin: Theme.space2
                    text: qsTr("Cancel")
                    onClicked: {
                        address.text = "";
                        root.translator.setAddress("");
                    }
                }
                Button {
                    id: allow

                    anchors.right: parent.right
                    kind: Button.Primary
                    text: qsTr("Allow")
                    onClicked: root.translator.allow()
                }
            }
        }
        Item {
            id: texts

            anchors {
                left: parent.left
                right: parent.right
                top: server.visible ? server.bottom : languages.bottom
                bottom: buttons.top
                topMargin: Theme.space2
                bottomMargin: Theme.space3
            }

            TextBox {
                id: source

                width: parent.width
                height: (parent.height - note.height - Theme.space2) / 2
                focus: true
                hint: qsTr("Type or paste a text")
                label: qsTr("Text")
                onEdited: root.translator.setInput(text)
                Component.onCompleted: show(root.translator.face.input)
            }
            Label {
                id: note

                anchors.top: source.bottom
                anchors.topMargin: Theme.space1
                width: parent.width
                text: {
                    const face = root.translator.face;
                    const found = face.detected !== "" ? qsTr("From %1").arg(face.detected) : "";
                    const by = face.output !== "" && face.by !== "" ? qsTr("by %1").arg(face.by) : "";
                    return found + (found !== "" && by !== "" ? " · " : "") + by;
                }
                role: Theme.small
                color: Theme.ink2
            }
            TextBox {
                id: output

                anchors.bottom: parent.bottom
                width: parent.width
                height: source.height
                visible: root.translator.face.problem === ""
                label: qsTr("Translation")
                hint: root.translator.face.isWorking ? qsTr("Translating…") : qsTr("The translation appears here")
                input.readOnly: true
                Component.onCompleted: show(root.translator.face.output)
            }
            Label {
                anchors.fill: output
                visible: root.translator.face.problem !== ""
                text: root.translator.face.problem
                color: Theme.orange.text
                wrapMode: Text.WordWrap
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
        }
        Row {
            id: buttons

            anchors.bottom: parent.bottom
            spacing: Theme.space2

            Button {
                kind: root.translator.face.isStale || root.translator.face.output === "" ? Button.Primary : Button.Secondary
                symbol: "translate"
                text: qsTr("Translate")
                tip: qsTr("Control+Return")
                enabled: source.text.trim() !== "" && !root.translator.face.isWorking
                onClicked: root.translator.translate()
            }
            Button {
                kind: root.translator.face.isStale || root.translator.face.output === "" ? Button.Secondary : Button.Primary
                symbol: "doc.on.doc"
                text: qsTr("Copy")
                enabled: root.translator.face.output !== ""
                onClicked: root.translator.copy()
            }
            Button {
                symbol: "doc.on.clipboard"
                text: qsTr("Use the Clipboard")
                onClicked: root.translator.useClipboard()
            }
        }
    }
}
