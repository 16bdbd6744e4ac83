import QtQuick
import Ambrel.Kit

// One profile: when it is chosen, how many tiles it has, whether it is on the bar.
Pressable {
    id: root

    required property string profile
    required property string name
    required property string trigger
    required property int tileCount
    required property bool isActive
    required property bool isPinned
    property bool canBeRemoved: true
    readonly property color ink: isActive ? Theme.blue.text : Theme.ink2

    // Its name is being edited, or whether it is to go is being asked.
    property bool isRenaming: false
    property bool isAsking: false

    signal removalWanted
    signal renamed(string name)
    signal menuWanted
    signal stepWanted(int step)

    function rename() {
        isRenaming = true;
        field.text = name;
        field.selectAll();
        field.input.forceActiveFocus();
    }
    function settle(name: string) {
        if (isRenaming && name !== "" && name !== root.name)
            renamed(name);
        isRenaming = false;
    }

    function ask() {
        if (!canBeRemoved)
            return;
        isAsking = true;
        keep.forceActiveFocus(Qt.TabFocusReason);
    }
    function leave() {
        isAsking = false;
        forceActiveFocus();
    }

    label: name + ", " + detail.text
    tip: isPinned ? qsTr("Chosen by hand until the program starts again") : trigger === "builtinOnly" ? qsTr("Chosen with the built-in display alone") : trigger === "external" ? qsTr("Chosen with an external display") : qsTr("Chosen by hand only")
    accessibleRole: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: isActive
    implicitHeight: isAsking ? question.height + 2 * Theme.space2 : Math.max(48, words.height + Theme.space3)
    Keys.onDeletePressed: root.ask()
    Keys.onPressed: event => {
        const isStep = event.modifiers === Qt.ControlModifier && (event.key === Qt.Key_Up || event.key === Qt.Key_Down);
        if (isStep)
            root.stepWanted(event.key === Qt.Key_Up ? -1 : 1);
        else if (event.key === Qt.Key_F2)
            root.rename();
        else if (event.key === Qt.Key_Menu || event.key === Qt.Key_F10)
            root.menuWanted();
        else
            return;
        event.accepted = true;
    }

    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: root.menuWanted()
    }

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: Theme.space2
        anchors.rightMargin: Theme.space2
        radius: Theme.radiusButton
        color: root.isActive ? Theme.blue.soft : root.down ? Theme.tilePressed : Theme.card
        visible: root.isActive || root.hovered || root.down || root.isAsking
    }
    Symbol {
        id: icon
        visible: !root.isAsking
        x: 18
        anchors.verticalCenter: parent.verticalCenter
        name: root.trigger === "builtinOnly" ? "laptopcomputer" : root.trigger === "external" ? "desktopcomputer" : "square.grid.2x2"
        size: 18
        color: root.ink
    }
    Field {
        id: field
        visible: root.isRenaming
        anchors {
            left: icon.right
            leftMargin: Theme.space1
            right: parent.right
            rightMargin: Theme.space3
            verticalCenter: parent.verticalCenter
        }
        hint: qsTr("Name")
        maximumLength: 40
        onAccepted: {
            root.settle(text);
            root.forceActiveFocus();
        }
        input.onActiveFocusChanged: if (!input.activeFocus)
            root.settle(text)
        // Keys that the field ignores must not reach the row, which would be chosen or deleted.
        Keys.onPressed: event => {
            event.accepted = event.key !== Qt.Key_Tab && event.key !== Qt.Key_Backtab;
            if (event.key !== Qt.Key_Escape)
                return;
            root.isRenaming = false;
            root.forceActiveFocus();
        }
    }
    Column {
        id: words
        visible: !root.isRenaming && !root.isAsking
        anchors {
            left: icon.right
            leftMargin: Theme.space2
            right: marks.left
            verticalCenter: parent.verticalCenter
        }

        Label {
            width: parent.width
            text: root.name
            role: Theme.listName
            Accessible.ignored: true
        }
        Label {
            id: detail
            width: parent.width
            text: root.tileCount === 1 ? qsTr("1 tile") : qsTr("%1 tiles").arg(root.tileCount)
            role: Theme.subLine
            color: Theme.ink2
            Accessible.ignored: true
        }
    }
    Row {
        id: marks
        visible: !root.isRenaming && !root.isAsking
        anchors.right: parent.right
        anchors.rightMargin: 14
        height: parent.height

        IconButton {
            visible: root.hovered || root.activeFocus || activeFocus
            size: 24
            symbolSize: 16
            symbol: "ellipsis"
            label: qsTr("Change %1").arg(root.name)
            anchors.verticalCenter: parent.verticalCenter
            onClicked: root.menuWanted()
        }
        Symbol {
            visible: root.isActive
            name: root.isPinned ? "pin" : "checkmark"
            size: 16
            color: root.ink
            anchors.verticalCenter: parent.verticalCenter
        }
    }
    Column {
        id: question
        visible: root.isAsking
        x: 18
        width: parent.width - 2 * x
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space1
        Keys.onEscapePressed: root.leave()

        Label {
            width: parent.width
            text: qsTr("Delete “%1”?").arg(root.name)
            role: Theme.small
            wrapMode: Text.Wrap
            maximumLineCount: 3
        }
        Flow {
            width: parent.width
            spacing: Theme.space1

            Button {
                size: 28
                text: qsTr("Delete")
                isCareful: true
                onClicked: root.removalWanted()
            }
            Button {
                id: keep
                size: 28
                kind: Button.Quiet
                text: qsTr("Keep")
                onClicked: root.leave()
            }
        }
    }
    FocusRing {
        anchors.leftMargin: 5
        anchors.rightMargin: 5
        anchors.topMargin: -1
        anchors.bottomMargin: -1
        targetRadius: Theme.radiusButton - 1
    }
}
