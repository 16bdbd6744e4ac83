import QtQuick
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Tools

// A text tool with its input, its choices and its result.
Popover {
    id: root

    required property ToolsArea area
    required property TextToolModel tool
    readonly property bool hasPicture: tool.widget === "qrCode"

    title: tool.title
    symbol: tool.symbol
    fact: tool.face.isWorking ? qsTr("Working…") : ""
    implicitWidth: Scaled.px(420)
    fitted: column

    onOpenChanged: {
        if (open)
            area.begin(tool);
        else if (tool) // it may have ended before its panel
            tool.end();
    }

    Connections {
        target: root.tool

        function onFaceChanged() {
            field.show(root.tool.face.input);
            result.show(root.tool.face.output);
        }
    }
    // Of a long text the field shows the beginning; to lay all of it out would take seconds.
    Connections {
        target: field.input.Keys

        function onPressed(event: var) {
            const isRemoval = event.key === Qt.Key_Delete || event.key === Qt.Key_Backspace;
            const isPaste = event.matches(StandardKey.Paste);
            if (field.input.selectedText.length !== field.input.length || !(isPaste || isRemoval && field.input.readOnly))
                return;
            if (isPaste)
                root.tool.useClipboard();
            else
                root.tool.clear();
            event.accepted = true;
        }
    }
    PanelColumn {
        id: column

        TextBox {
            id: field

            visible: root.tool.takesInput
            width: parent.width
            height: Scaled.px(96)
            focus: root.tool.takesInput
            hint: qsTr("Type, paste or drop a text")
            label: qsTr("Text")
            input.readOnly: root.tool.face.inputNote !== ""
            onEdited: root.tool.setInput(text)
            Component.onCompleted: show(root.tool.face.input)
        }
        Item {
            visible: root.tool.takesInput
            width: parent.width
            height: clipboard.height

            Label {
                width: parent.width - clipboard.width - Theme.space3
                anchors.verticalCenter: parent.verticalCenter
                text: root.tool.face.inputNote
                role: Theme.small
                color: Theme.ink2
            }
            LinkButton {
                id: clipboard

                anchors.right: parent.right
                text: qsTr("Use the Clipboard")
                onClicked: root.tool.useClipboard()
            }
        }
        Flow {
            width: parent.width
            spacing: Theme.space2
            visible: choices.count > 0

            Repeater {
                id: choices

                model: root.tool.choices

                Chip {
                    required property int index
                    required property string modelData

                    text: modelData
                    isChosen: index === root.tool.choice
                    onClicked: root.tool.choice = index
                }
            }
        }
        Section {
            visible: root.tool.widget === "password"

            SettingRow {
                key: "passwordLength"
                title: qsTr("Characters")
            }
        }
        TextBox {
            id: result

            visible: !root.hasPicture && root.tool.face.fault === ""
            width: parent.width
            height: Scaled.px(root.tool.takesInput ? 128 : 96)
            focus: !root.tool.takesInput
            label: qsTr("Result")
            input.readOnly: true
            input.font: Theme.code.font
            Component.onCompleted: show(root.tool.face.output)
        }
        Item {
            visible: root.hasPicture || root.tool.face.fault !== ""
            width: parent.width
            height: root.hasPicture ? 200 : result.height

            ToolPicture {
                anchors.centerIn: parent
                visible: root.tool.face.hasOutput
                width: 200
                height: 200
                face: root.tool.face
                Accessible.role: Accessible.Graphic
                Accessible.name: root.title
            }
            Label {
                visible: root.tool.face.fault !== ""
                anchors.centerIn: parent
                width: parent.width
                text: root.tool.face.fault
                color: Theme.orange.text
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.WordWrap
            }
        }
        Row {
            width: parent.width
            spacing: Theme.space2

            Button {
                kind: Button.Primary
                symbol: "doc.on.doc"
                text: qsTr("Copy")
                enabled: root.tool.face.hasOutput
                onClicked: root.tool.copy()
            }
            Button {
                visible: !root.tool.takesInput
                symbol: "arrow.clockwise"
                text: qsTr("Another")
                onClicked: root.tool.makeNew()
            }
            Button {
                visible: root.hasPicture
                symbol: "square.and.arrow.down"
                text: qsTr("Save as PNG")
                enabled: root.tool.face.hasOutput
                onClicked: root.tool.save()
            }
            Label {
                anchors.verticalCenter: parent.verticalCenter
                text: root.tool.face.outputNote
                role: Theme.small
                color: Theme.ink2
            }
        }
    }
    DropArea {
        anchors.fill: parent
        enabled: root.tool.takesInput
        onDropped: drop => {
            root.tool.take(drop.text, drop.urls);
            drop.accept(Qt.CopyAction);
        }
    }
}
