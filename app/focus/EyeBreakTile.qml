import QtQuick
import Ambrel.Focus
import Ambrel.Kit

// The time until the next eye break, and the break itself. A click takes a break that is due and ends one that runs.
RingValueTile {
    id: root

    required property BreakReminder eyeBreak
    readonly property BreakReminder reminder: eyeBreak
    readonly property bool isIdle: !reminder.face.isOn && !reminder.face.isOnBreak

    settingsPanel: Qt.resolvedUrl("BreakPanel.qml")
    panelProperties: ({
            reminder: reminder
        })
    menuText: reminder.face.isOn ? qsTr("Pause Eye Breaks") : qsTr("Resume Eye Breaks")
    menuSymbol: "eye"
    onMenuChosen: reminder.setIsOn(!reminder.face.isOn)
    model: reminder
    ticks: !isIdle && !reminder.face.isDue
    percent: isIdle ? 0 : reminder.face.isDue ? 100 : reminder.face.percentLeft
    tone: reminder.face.isDue ? Theme.orange : reminder.face.isOnBreak ? Theme.green : Theme.teal
    control: reminder.face.isOnBreak ? "xmark" : isIdle ? "play.fill" : "eye"
    controlLabel: reminder.face.isOnBreak ? qsTr("Click to end the break") : isIdle ? qsTr("Resume Eye Breaks") : qsTr("Take the break now")
    figure: isIdle ? qsTr("Paused") : reminder.face.isDue ? (isWide ? qsTr("Look away") : qsTr("Now")) : reminder.face.countdown
    ink: reminder.face.isDue ? Theme.orange.text : isIdle ? Theme.ink2 : Theme.ink
    detail: {
        if (reminder.face.isOnBreak)
            return isWide ? qsTr("Click to end the break") : qsTr("Click to end");
        if (!isWide)
            return qsTr("%1 today").arg(reminder.face.countToday);
        return isIdle ? qsTr("no eye breaks") : reminder.face.isDue ? qsTr("for 20 seconds") : qsTr("until an eye break");
    }
    tip: isIdle || reminder.face.isOnBreak || reminder.face.isDue ? label : label + ". " + qsTr("%1 today").arg(reminder.face.countToday)
    onControlPressed: {
        if (reminder.face.isOnBreak)
            reminder.endBreak();
        else if (isIdle)
            reminder.setIsOn(true);
        else
            reminder.takeBreak();
    }
    onActivated: reminder.face.isOnBreak ? reminder.endBreak() : reminder.face.isDue ? reminder.takeBreak() : root.settingsAsked()
}
