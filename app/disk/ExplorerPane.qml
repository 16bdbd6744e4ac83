import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// The breadcrumb of the current folder, its chart, and the legend.
Item {
    id: root

    required property DiskDoctor doctor
    readonly property DiskExplorer explorer: doctor.explorer
    readonly property bool isWhole: doctor.face.isDone || doctor.face.isAnalyzing

    Breadcrumb {
        id: path

        anchors {
            left: parent.left
            leftMargin: Theme.space6
            right: askButton.left
            rightMargin: Theme.space2
            top: parent.top
            topMargin: 10
        }
        height: Scaled.px(32)
        parts: root.explorer.path
        onChosen: id => root.explorer.enter(id)
    }
    IconButton {
        id: askButton

        anchors {
            right: parent.right
            rightMargin: Theme.space5
            top: parent.top
            topMargin: Theme.space3
        }
        visible: root.doctor.face.isDone
        label: qsTr("Is it safe to delete this?")
        symbol: "questionmark.circle"
        onClicked: root.doctor.askAbout(root.explorer.spot.center.id)
    }

    SunburstPane {
        anchors {
            top: path.bottom
            topMargin: 10
            bottom: legend.top
            bottomMargin: Theme.space5
            horizontalCenter: parent.horizontalCenter
        }
        width: Math.min(height, root.width - 2 * Theme.space6)
        doctor: root.doctor
    }

    Grid {
        id: legend

        anchors {
            left: parent.left
            leftMargin: Theme.space6
            right: parent.right
            rightMargin: Theme.space6
            bottom: parent.bottom
            bottomMargin: 30
        }
        columns: 2
        columnSpacing: 2 * Theme.space4
        height: 3 * Math.max(24, Theme.body.line + 6)

        Repeater {
            model: root.explorer.legend

            LegendRow {
                width: (legend.width - legend.columnSpacing) / 2
                height: legend.height / 3
                canChoose: root.isWhole
                onHoveredChanged: root.explorer.hoveredID = hovered ? row.partId : ""
                onClicked: {
                    if (row.isFolder)
                        root.explorer.enter(row.partId);
                    else
                        root.doctor.askAbout(row.partId);
                }
            }
        }
    }
}
