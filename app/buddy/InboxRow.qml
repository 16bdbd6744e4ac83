import QtQuick
import Ambrel.Buddy
import Ambrel.Kit

// One notice in the inbox. When chosen, it shows its full text, why it came, and its actions.
FocusScope {
    id: root

    required property inboxRow row
    readonly property buddyNoticeText note: row.note
    property bool isChosen: false
    readonly property Tone colors: ({
            orange: Theme.orange,
            blue: Theme.blue,
            green: Theme.green,
            red: Theme.red
        })[note.tone] || Theme.neutral

    signal chosen
    signal perform(int action)
    signal settingsAsked

    implicitHeight: body.height + 2 * Theme.space2

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusButton
        color: head.down ? Theme.tilePressed : Theme.card
        opacity: root.isChosen || head.hovered || head.down ? 1 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.hoverDuration
                easing.type: Easing.OutCubic
            }
        }
    }

    Pressable {
        id: head

        anchors.fill: parent
        focus: true
        label: root.note.spoken + ", " + root.note.age + (root.row.isNew ? ", " + qsTr("new") : "")
        accessibleRole: Accessible.ListItem
        onClicked: root.chosen()

        FocusRing {
            gap: 1
            targetRadius: Theme.radiusButton - 3
        }
    }

    Rectangle {
        id: box

        x: Theme.space2
        y: Theme.space2
        width: 32
        height: 32
        radius: Theme.radiusButton
        color: root.colors.soft

        Symbol {
            anchors.centerIn: parent
            name: root.note.symbol
            size: 18
            color: root.colors.text
        }
    }

    Column {
        id: body

        anchors.left: box.right
        anchors.leftMargin: Theme.space3
        anchors.right: parent.right
        anchors.rightMargin: Theme.space2
        y: Theme.space2
        spacing: Theme.space2

        Column {
            width: parent.width

            Item {
                width: parent.width
                height: title.height

                TipLabel {
                    id: title

                    width: Math.min(Math.ceil(implicitWidth), parent.width - ageLabel.width - Theme.space3 - (dot.visible ? 16 : 0))
                    text: root.note.title
                    role: Theme.rowTitle
                    Accessible.ignored: true
                }
                Rectangle {
                    id: dot

                    visible: root.row.isNew
                    anchors.left: title.right
                    anchors.leftMargin: Theme.space2
                    anchors.verticalCenter: title.verticalCenter
                    width: 6
                    height: 6
                    radius: 3
                    color: Theme.blue.mark
                }
                Label {
                    id: ageLabel

                    anchors.right: parent.right
                    text: root.note.age
                    role: Theme.small
                    color: Theme.ink2
                    Accessible.ignored: true
                }
            }
            Label {
                width: parent.width
                text: root.note.detail
                role: Theme.small
                color: Theme.ink2
                wrapMode: root.isChosen ? Text.Wrap : Text.NoWrap
                Accessible.ignored: true
            }
        }
        NoticeActions {
            visible: root.isChosen && root.note.actions.length > 0
            actions: root.note.actions
            size: 28
            onPerform: action => root.perform(action)
        }
        WhyText {
            visible: root.isChosen
            width: parent.width
            why: root.note.why
            setting: root.note.setting
            onSettingsAsked: root.settingsAsked()
        }
    }
}
