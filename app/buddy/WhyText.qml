import QtQuick
import Ambrel.Buddy
import Ambrel.Kit

// Why a notice came: the rule in words, and a link to the setting that turns it off.
Column {
    id: root

    required property string why
    required property string setting

    signal settingsAsked

    spacing: 2

    Label {
        width: parent.width
        text: qsTr("Why: %1").arg(root.why)
        role: Theme.subLine
        color: Theme.ink2
        wrapMode: Text.Wrap
    }
    Pressable {
        id: link

        width: parent.width
        height: words.height
        label: root.setting
        onClicked: root.settingsAsked()

        Label {
            id: words

            width: parent.width
            text: root.setting
            role: Theme.subLine
            color: link.hovered ? Theme.ink : Theme.blue.text
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
        FocusRing {
            gap: 2
            targetRadius: Theme.radiusHighlight
        }
    }
}
