import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit
import Ambrel.Shelf

// A large view of one clip; a picture and its text side by side. Space and Escape close it, Return copies the clip,
// Control+C copies the selection.
FocusScope {
    id: root

    required property ClipboardModel clipboard
    required property string clipId
    readonly property bool isCentred: true
    readonly property bool hangsLeft: false
    readonly property var face: clipboard.items.faceOf(clipId)
    readonly property string picture: face.picture
    readonly property string text: clipboard.textOf(clipId)
    readonly property bool hasBoth: picture !== "" && text !== ""

    function begin() {
        root.forceActiveFocus();
    }

    function copySelection() {
        if (words.selectedText === "")
            root.picked();
        else
            root.clipboard.copyText(words.selectedText);
    }

    signal picked
    signal textPicked
    signal closeRequested

    Keys.onPressed: event => {
        if (event.key === Qt.Key_Space || event.key === Qt.Key_Escape)
            root.closeRequested();
        else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
            root.picked();
        else if (event.key === Qt.Key_C && event.modifiers === Qt.ControlModifier)
            root.copySelection();
        else if (event.key === Qt.Key_A && event.modifiers === Qt.ControlModifier)
            words.selectAll();
        else
            return;
        event.accepted = true;
    }
    Accessible.role: Accessible.Dialog
    Accessible.name: qsTr("Preview")

    PanelGround {
        anchors.fill: parent
        radius: Theme.radiusTile
        shadow: "floating"
    }
    MouseArea {
        anchors.fill: parent
    }
    Image {
        anchors.fill: parent
        anchors.margins: Theme.space3
        anchors.rightMargin: root.hasBoth ? parent.width / 2 : Theme.space3
        visible: root.picture !== ""
        source: root.picture === "" ? "" : "image://ambrel.clip/whole/" + root.picture
        sourceSize.width: Math.round(width * Screen.devicePixelRatio)
        sourceSize.height: Math.round(height * Screen.devicePixelRatio)
        fillMode: Image.PreserveAspectFit
        asynchronous: true
        cache: false
    }
    ScrollView {
        anchors.fill: parent
        anchors.margins: Theme.space1
        anchors.leftMargin: root.hasBoth ? parent.width / 2 : Theme.space1
        anchors.bottomMargin: root.hasBoth ? copyText.height + 2 * Theme.space2 : Theme.space1
        padding: Theme.space3
        visible: root.text !== ""
        focus: true

        TextEdit {
            id: words

            width: parent.width - Theme.space6
            text: root.text
            font: root.face.look === "code" || root.face.look === "secret" ? Theme.code.font : Theme.body.font
            color: Theme.ink
            selectionColor: Theme.accent
            selectedTextColor: Theme.onAccent
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap
            readOnly: true
            selectByMouse: true
            activeFocusOnPress: false
        }
    }
    Button {
        id: copyText

        anchors {
            right: parent.right
            bottom: parent.bottom
            margins: Theme.space2
        }
        visible: root.hasBoth
        text: qsTr("Copy as text")
        onClicked: root.textPicked()
    }
    IconButton {
        anchors {
            right: parent.right
            top: parent.top
            margins: Theme.space2
        }
        symbol: "xmark"
        label: qsTr("Close the preview")
        onClicked: root.closeRequested()
    }
}
