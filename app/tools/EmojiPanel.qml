import QtQuick
import Ambrel.Kit
import Ambrel.Tools

// All emoji, by group or by name. The arrow keys move, Return copies.
Popover {
    id: root

    required property EmojiModel emoji
    readonly property int across: 9
    // Of the emoji under the keys' cursor or the pointer.
    property string pointedName

    function take(index: int) {
        if (emoji.copy(index))
            closeRequested();
    }

    title: qsTr("Emoji")
    symbol: "face.smiling.inverse"
    implicitWidth: Scaled.px(392)
    implicitHeight: Scaled.px(452)

    onAboutToOpen: {
        field.text = "";
        emoji.begin();
    }
    // The panel still shows the emoji while it fades out.
    onPresenceChanged: if (!open && presence === 0 && emoji)
        emoji.end()

    Field {
        id: field

        x: Theme.space4
        y: Theme.space2
        width: parent.width - 2 * Theme.space4
        isSearch: true
        walks: true
        focus: true
        hint: qsTr("Search emoji")
        maximumLength: 100
        onTextChanged: {
            root.emoji.search(text);
            grid.currentIndex = 0;
            grid.positionViewAtBeginning();
        }
        onAccepted: root.take(grid.currentIndex)
        onWalked: key => {
            if (key === Qt.Key_Left)
                grid.moveCurrentIndexLeft();
            else if (key === Qt.Key_Right)
                grid.moveCurrentIndexRight();
            else if (key === Qt.Key_Up)
                grid.moveCurrentIndexUp();
            else
                grid.moveCurrentIndexDown();
        }
    }
    Row {
        id: groups

        anchors.top: field.bottom
        anchors.topMargin: Theme.space2
        x: Theme.space4
        opacity: field.text === "" ? 1 : 0.5

        Repeater {
            model: root.emoji.face.groups

            EmojiChoice {
                required property int index
                required property string modelData

                label: modelData
                emoji: root.emoji.face.samples[index] ?? ""
                isChosen: index === root.emoji.face.group && field.text === ""
                onClicked: {
                    field.text = "";
                    root.emoji.setGroup(index);
                    grid.currentIndex = 0;
                    grid.positionViewAtBeginning();
                }
            }
        }
    }
    GridView {
        id: grid

        anchors {
            left: parent.left
            right: parent.right
            top: groups.bottom
            bottom: foot.top
            leftMargin: Theme.space4
            rightMargin: Theme.space3
            topMargin: Theme.space1
        }
        cellWidth: Math.floor(width / root.across)
        cellHeight: Scaled.px(40)
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        model: root.emoji.rows
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Emoji")

        delegate: EmojiChoice {
            required property emojiRow row
            required property int index

            width: grid.cellWidth
            height: grid.cellHeight
            label: row.name
            tip: ""
            accessibleRole: Accessible.ListItem
            activeFocusOnTab: false
            emoji: row.text
            size: 22
            isChosen: GridView.isCurrentItem
            onHoveredChanged: if (hovered)
                root.pointedName = label
            onIsChosenChanged: if (isChosen)
                root.pointedName = label
            onClicked: root.take(index)
        }
    }
    EmptyState {
        anchors.centerIn: grid
        width: grid.width
        visible: grid.count === 0 && root.emoji.face.groups.length > 0
        symbol: "face.smiling.inverse"
        title: root.emoji.face.problem !== "" ? qsTr("No emoji") : field.text !== "" ? qsTr("No emoji found") : qsTr("No recent emoji")
        sentence: root.emoji.face.problem !== "" ? root.emoji.face.problem : field.text !== "" ? qsTr("Search for an English name, such as heart.") : qsTr("Emoji that you copy appear here.")
    }
    ScrollBar {
        view: grid
        anchors {
            right: parent.right
            top: grid.top
            bottom: grid.bottom
            rightMargin: 2
        }
    }
    Item {
        id: foot

        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
            leftMargin: Theme.space4
            rightMargin: Theme.space4
        }
        height: Scaled.px(44)

        TipLabel {
            width: parent.width - tones.width - Theme.space2
            anchors.verticalCenter: parent.verticalCenter
            text: root.pointedName
            role: Theme.small
            color: Theme.ink2
        }
        Row {
            id: tones

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter

            Repeater {
                model: root.emoji.face.tones

                EmojiChoice {
                    required property int index
                    required property string modelData

                    label: index === 0 ? qsTr("Default skin tone") : qsTr("Skin tone %1").arg(index)
                    emoji: modelData
                    size: 15
                    isChosen: index === root.emoji.face.tone
                    onClicked: root.emoji.setTone(index)
                }
            }
        }
    }
}
