import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The time until the next eye break, and the break itself. A click takes a break that is due and ends one that runs.
RingValueTile {
    id: root

    required property BreakReminder eyeBreak
    readonly property BreakReminder reminder: eyeBreak
    readonly property bool isIdle: !reminder.isOn && !reminder.isOnBreak

    settingsPanel: Qt.resolvedUrl("BreakPanel.qml")
    panelProperties: ({
            reminder: reminder
        })
    menuText: reminder.isOn ? qsTr("Pause Eye Breaks") : qsTr("Resume Eye Breaks")
    menuSymbol: "eye"
    onMenuChosen: reminder.isOn = !reminder.isOn
    percent: isIdle ? 0 : reminder.isDue ? 100 : reminder.percentLeft
    tone: reminder.isDue ? Theme.orange : reminder.isOnBreak ? Theme.green : Theme.teal
    control: reminder.isOnBreak ? "xmark" : isIdle ? "play.fill" : "eye"
    controlLabel: reminder.isOnBreak ? qsTr("Click to end the break") : isIdle ? qsTr("Resume Eye Breaks") : qsTr("Take the break now")
    figure: isIdle ? qsTr("Paused") : reminder.isDue ? (isWide ? qsTr("Look away") : qsTr("Now")) : reminder.countdown
    widestFigure: isIdle || reminder.isDue ? "" : reminder.countdown.replace(/[0-9]/g, "0")
    ink: reminder.isDue ? Theme.orange.text : isIdle ? Theme.ink2 : Theme.ink
    detail: {
        if (reminder.isOnBreak)
            return isWide ? qsTr("Click to end the break") : qsTr("Click to end");
        if (!isWide)
            return qsTr("%1 today").arg(reminder.countToday);
        return isIdle ? qsTr("no eye breaks") : reminder.isDue ? qsTr("for 20 seconds") : qsTr("until an eye break");
    }
    tip: isIdle || reminder.isOnBreak || reminder.isDue ? label : label + ". " + qsTr("%1 today").arg(reminder.countToday)
    onControlPressed: {
        if (reminder.isOnBreak)
            reminder.endBreak();
        else if (isIdle)
            reminder.isOn = true;
        else
            reminder.takeBreak();
    }
    onActivated: reminder.isOnBreak ? reminder.endBreak() : reminder.isDue ? reminder.takeBreak() : root.settingsAsked()

    LiveTimeline {
        schedule: root.isIdle || root.reminder.isDue ? LiveTimeline.Never : LiveTimeline.EverySecond
        active: root.live
        onTicked: Qt.callLater(root.reminder.update) // qmllint disable
    }
}
