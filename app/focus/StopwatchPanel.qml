import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The stopwatch with its controls.
Popover {
    id: root

    required property Stopwatch stopwatch
    property bool live: true

    title: qsTr("Stopwatch")
    symbol: "stopwatch"
    fitted: buttons

    LiveTimeline {
        schedule: root.stopwatch.face.isRunning ? LiveTimeline.EverySecond : LiveTimeline.Never
        active: root.live
        onTicked: Qt.callLater(root.stopwatch.update) // qmllint disable
    }

    TickingText {
        id: time
        y: Theme.space2
        width: parent.width
        height: Scaled.px(36)
        alignment: Qt.AlignHCenter
        text: root.stopwatch.face.elapsed
        widest: root.stopwatch.face.elapsed.replace(/[0-9]/g, "0")
        font: Theme.headline.font
        color: Theme.ink
    }
    Row {
        id: buttons

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: time.bottom
        anchors.topMargin: Theme.space3
        spacing: Theme.space2

        Button {
            kind: Button.Primary
            focus: true
            text: root.stopwatch.face.isRunning ? qsTr("Stop") : qsTr("Start")
            onClicked: root.stopwatch.toggle()
        }
        Button {
            text: qsTr("Reset")
            enabled: !root.stopwatch.face.isZero
            onClicked: root.stopwatch.reset()
        }
    }
}
