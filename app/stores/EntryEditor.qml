import QtQuick
import Ambrel.Kit

// The fields of one entry. Return in a line and Escape end the edit; what was typed is kept.
FocusScope {
    id: root

    // Before the edit.
    required property string title
    required property string text
    required property string titleHint
    required property string textHint
    required property bool isTextLong
    readonly property bool hasText: textHint !== ""

    signal edited(string title, string text)
    signal done

    property bool isReady: false

    function tell() {
        if (isReady)
            edited(name.text, !hasText ? "" : isTextLong ? box.text : line.text);
    }

    implicitHeight: fields.height
    Component.onCompleted: {
        name.text = title;
        line.text = text;
        box.show(text);
        isReady = true;
        name.selectAll();
    }
    Keys.onEscapePressed: done()

    Column {
        id: fields

        width: parent.width
        spacing: Theme.space2

        Field {
            id: name
            width: parent.width
            hint: root.titleHint
            focus: true
            onTextChanged: root.tell()
            onAccepted: root.done()
        }
        Field {
            id: line
            width: parent.width
            visible: root.hasText && !root.isTextLong
            hint: root.textHint
            onTextChanged: root.tell()
            onAccepted: root.done()
        }
        TextBox {
            id: box
            width: parent.width
            visible: root.hasText && root.isTextLong
            hint: root.textHint
            onEdited: root.tell()
        }
        Button {
            anchors.right: parent.right
            size: 28
            text: qsTr("Done")
            onClicked: root.done()
        }
    }
}
