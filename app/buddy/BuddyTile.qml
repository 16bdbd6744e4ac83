import QtQuick
import Ambrel.Buddy
import Ambrel.Kit
import Ambrel.Model

// Buddy's tile. While a bubble is shown, it takes the keyboard for it: the arrows across the bar choose an action, Return
// performs it, Delete closes the bubble.
TileFrame {
    id: root

    required property BuddyNoticeCenter center
    required property AppSettings settings
    // The bar is at the bottom edge and uses Left and Right itself.
    readonly property bool isRow: settings.dockEdge === "bottom"
    readonly property int newCount: center.inbox.newCount
    readonly property string news: newCount === 0 ? center.buddy.moodText : newCount === 1 ? qsTr("1 new note") : qsTr("%1 new notes").arg(newCount)

    // Something for Ask Buddy; empty to type it there.
    signal ask(string question)

    function press() {
        if (activeFocus && center.hasBubble)
            center.performChoice();
        else if (enabled)
            clicked();
    }

    leadsElsewhere: center.choice >= 0
    panel: Qt.resolvedUrl("BuddyInboxLayout.qml")
    menuText: qsTr("Ask Buddy")
    menuSymbol: "text.bubble"
    onMenuChosen: ask("")
    hasHeader: false
    label: center.hasBubble ? title + ". " + center.bubble.spoken : title + ", " + news
    tip: center.hasBubble ? "" : qsTr("Buddy: %1").arg(news)
    onActiveFocusChanged: center.setReached(activeFocus)

    // A user who moves the focus to the bar while a bubble is shown wants to answer it.
    readonly property bool isWindowActive: Window.active
    onIsWindowActiveChanged: if (isWindowActive && center.hasBubble)
        forceActiveFocus(Qt.TabFocusReason)
    Connections {
        target: root.center // qmllint disable
        function onKeyboardOffered() {
            root.forceActiveFocus(Qt.TabFocusReason);
        }
    }

    Keys.onPressed: event => {
        if (!root.center.hasBubble)
            return;
        const back = root.isRow ? Qt.Key_Up : Qt.Key_Left;
        const on = root.isRow ? Qt.Key_Down : Qt.Key_Right;
        if (event.key === back || event.key === on)
            root.center.moveChoice(event.key === on ? 1 : -1);
        else if (event.key === Qt.Key_Delete || event.key === Qt.Key_Backspace)
            root.center.closeBubble();
        else
            return;
        event.accepted = true;
    }

    BuddyFace {
        id: face

        x: words.visible || count.visible ? 0 : Math.round((parent.width - width) / 2)
        anchors.verticalCenter: parent.verticalCenter
        size: Scaled.px(50)
        pose: root.center.buddy.pose
        live: root.live
    }
    Column {
        id: count

        visible: root.span === TileFrame.Medium && root.newCount > 0
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter

        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            text: root.newCount
            role: Theme.value
            Accessible.ignored: true
        }
        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("new")
            role: Theme.subLine
            color: Theme.ink2
            Accessible.ignored: true
        }
    }
    Column {
        id: words

        visible: root.span === TileFrame.Large || root.span === TileFrame.ExtraLarge
        anchors.left: face.right
        anchors.leftMargin: Theme.space2
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter

        Label {
            width: parent.width
            text: qsTr("Buddy")
            role: Theme.rowTitle
            Accessible.ignored: true
        }
        Label {
            width: parent.width
            text: root.news
            role: Theme.subLine
            color: Theme.ink2
            Accessible.ignored: true
        }
    }
    Rectangle {
        visible: root.isSmall && root.newCount > 0 && !root.center.hasBubble
        x: 4
        y: 0
        width: 8
        height: 8
        radius: 4
        color: Theme.blue.mark
    }
}
