import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// How today feels.
Popover {
    id: root

    required property MoodLog mood

    title: qsTr("How do you feel today?")
    symbol: "face.smiling"
    fitted: faces

    Row {
        id: faces

        anchors.horizontalCenter: parent.horizontalCenter
        y: Theme.space2
        spacing: Theme.space1

        Repeater {
            model: 5

            Pressable {
                id: choice

                required property int index
                readonly property int value: index + 1
                readonly property bool isChosen: root.mood.week.today === value

                label: root.mood.nameOf(value)
                accessibleRole: Accessible.RadioButton
                Accessible.checked: isChosen
                implicitWidth: Scaled.px(60)
                implicitHeight: Scaled.px(72)
                onClicked: {
                    root.mood.setToday(value);
                    root.closeRequested();
                }

                Rectangle {
                    anchors.fill: parent
                    radius: Theme.radiusButton
                    color: choice.isChosen ? Theme.blue.soft : Theme.card
                    visible: choice.isChosen || choice.hovered
                }
                MoodFace {
                    anchors.horizontalCenter: parent.horizontalCenter
                    y: 10
                    mood: choice.value
                    size: 34
                }
                Label {
                    width: parent.width
                    anchors.bottom: parent.bottom
                    anchors.bottomMargin: 8
                    text: choice.label
                    role: Theme.subLine
                    color: choice.isChosen ? Theme.blue.text : Theme.ink2
                    horizontalAlignment: Text.AlignHCenter
                    Accessible.ignored: true
                }
                FocusRing {
                }
            }
        }
    }
}
