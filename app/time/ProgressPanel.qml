import QtQuick
import Ambrel.Kit
import Ambrel.Time

// How much of the day, the week, the month and the year has passed.
Popover {
    id: root

    required property TimeReadingModel dayProgress
    required property TimeReadingModel weekProgress
    required property TimeReadingModel monthProgress
    required property TimeReadingModel yearProgress
    readonly property var spans: [dayProgress, weekProgress, monthProgress, yearProgress]

    title: qsTr("Time Passed")
    symbol: "chart.pie"
    fitted: rows
    onAboutToOpen: {
        for (const span of spans)
            span.update();
    }

    PanelColumn {
        id: rows

        y: Theme.space3

        Repeater {
            model: root.spans

            Column {
                id: entry

                required property TimeReadingModel modelData

                width: rows.width
                spacing: 2

                DetailRow {
                    title: entry.modelData.face.title
                    figure: entry.modelData.face.subLine
                    role: Theme.small
                }
                Meter {
                    width: parent.width
                    value: entry.modelData.face.percent
                    tone: Theme.blue
                    thickness: 6
                    figure: qsTr("%1 %").arg(entry.modelData.face.percent)
                    Accessible.name: entry.modelData.face.title + ", " + figure
                }
            }
        }
    }
}
