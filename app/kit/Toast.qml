import QtQuick
import Ambrel.Kit

// A short message that disappears by itself, with at most one action. Call `show`; a new one replaces the old.
PanelGround {
    id: root

    property string title
    property string detail
    property string symbol
    property string action
    property bool isShown: false
    property real presence: isShown ? 1 : 0
    // False where nothing below shows through.
    property bool fades: true

    signal actionChosen
    signal closed

    function show(title: string, detail: string, symbol: string, action: string) {
        root.title = title;
        root.detail = detail;
        root.symbol = symbol;
        root.action = action;
        root.isShown = true;
        stay.restart();
    }
    function hide() {
        if (!isShown)
            return;
        isShown = false;
        stay.stop();
        closed();
    }

    implicitWidth: content.width + 2 * (Theme.space4 + 2)
    implicitHeight: Math.max(40, content.height + Theme.space3)
    radius: Math.min(Theme.radiusBar, Math.floor(height / 2))
    shadow: "floating"
    opacity: fades && presence < 0.99 ? presence : 1
    visible: isShown || presence > 0
    // Screen readers say what comes in this role, and no alert.
    Accessible.role: Accessible.Notification
    Accessible.name: detail === "" ? title : title + ", " + detail
    transform: Translate {
        y: root.fades ? (1 - root.presence) * Theme.travel : 0
    }

    Behavior on presence {
        NumberAnimation {
            duration: root.isShown ? Theme.openDuration : 160
            easing.type: root.isShown ? Easing.OutCubic : Easing.InCubic
        }
    }
    Timer {
        id: stay
        interval: Theme.toastStay
        onTriggered: root.hide()
    }
    HoverHandler {
        onHoveredChanged: hovered ? stay.stop() : root.isShown && stay.restart()
    }
    Row {
        id: content
        anchors.centerIn: parent
        spacing: Theme.space3

        Symbol {
            visible: root.symbol !== ""
            name: root.symbol
            size: 18
            color: Theme.ink2
            anchors.verticalCenter: parent.verticalCenter
        }
        Column {
            anchors.verticalCenter: parent.verticalCenter

            TipLabel {
                text: root.title
                role: root.detail === "" ? Theme.body : Theme.listName
                width: Math.min(Math.ceil(implicitWidth), 420)
                Accessible.ignored: true
            }
            TipLabel {
                visible: root.detail !== ""
                text: root.detail
                role: Theme.subLine
                color: Theme.ink2
                width: Math.min(Math.ceil(implicitWidth), 420)
                Accessible.ignored: true
            }
        }
        Rectangle {
            visible: root.action !== ""
            width: 1
            height: 16
            color: Theme.over(Theme.lineStrong, Theme.panel)
            anchors.verticalCenter: parent.verticalCenter
        }
        LinkButton {
            visible: root.action !== ""
            text: root.action
            anchors.verticalCenter: parent.verticalCenter
            onClicked: {
                root.actionChosen();
                root.hide();
            }
        }
    }
}
