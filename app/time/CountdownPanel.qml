import QtQuick
import Ambrel.Kit
import Ambrel.Time

// What is waited for, and its date.
Popover {
    id: root

    required property CountdownModel countdown

    title: countdown.face.value + (countdown.face.unit === "" ? "" : " " + countdown.face.unit)
    symbol: "hourglass"
    fact: root.countdown.face.weeks
    implicitWidth: grid.implicitWidth + 2 * Theme.space4
    fitted: rows
    onAboutToOpen: {
        countdown.showDate();
        field.text = countdown.face.isUsual ? "" : countdown.face.title;
    }
    onOpenChanged: if (!open && countdown) // it may have ended before its panel
        countdown.finish()

    PanelColumn {
        id: rows

        y: Theme.space3

        Field {
            id: field

            width: parent.width
            symbol: "pencil"
            label: qsTr("What you are counting down to")
            hint: root.countdown.face.title
            maximumLength: 60
            focus: true
            input.onTextEdited: root.countdown.setTitle(text)
            onAccepted: root.closeRequested()
        }
        TipLabel {
            width: parent.width
            text: root.countdown.face.date
            role: Theme.small
            color: Theme.ink2
        }
        MonthGrid {
            id: grid

            width: parent.width
            month: root.countdown.month
        }
        Button {
            visible: !root.countdown.face.isUsual
            size: 28
            symbol: "arrow.counterclockwise"
            text: qsTr("Count to New Year")
            onClicked: {
                field.text = "";
                root.countdown.reset();
            }
        }
    }
}
