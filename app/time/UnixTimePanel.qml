import QtQuick
import Ambrel.Kit
import Ambrel.Time

// A Unix time or a date in the other form. A click on a line copies it.
Popover {
    id: root

    required property TimeConverter converter

    signal copyAsked(text: string)

    title: qsTr("Unix Time")
    symbol: "number"
    implicitHeight: Scaled.px(334)
    onAboutToOpen: {
        field.text = "";
        converter.convert("");
        field.forceActiveFocus();
    }

    Field {
        id: field

        x: Theme.space4
        y: Theme.space3
        width: parent.width - 2 * Theme.space4
        isSearch: true
        symbol: "clock"
        hint: qsTr("Seconds, or 2026-11-22 14:30")
        maximumLength: 60
        focus: true
        onTextChanged: root.converter.convert(text)
    }
    TipLabel {
        id: note

        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        anchors.top: field.bottom
        anchors.topMargin: Theme.space2
        text: root.converter.note
        role: Theme.small
        color: root.converter.isProblem ? Theme.orange.text : Theme.ink2
    }
    Column {
        x: Theme.space2
        width: parent.width - 2 * Theme.space2
        anchors.top: note.bottom
        anchors.topMargin: Theme.space2

        Repeater {
            model: root.converter.rows

            ListRow {
                id: line

                required property conversionRow row

                width: parent.width
                title: row.value
                detail: row.title
                label: qsTr("Copy %1, %2").arg(row.title).arg(row.value)
                onClicked: root.copyAsked(row.value)

                Symbol {
                    name: "doc.on.doc"
                    size: 16
                    color: line.hovered || line.activeFocus ? Theme.ink : Theme.ink3
                    anchors.verticalCenter: parent.verticalCenter
                }
            }
        }
    }
}
