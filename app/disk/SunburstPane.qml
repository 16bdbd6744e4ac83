import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// The chart, and in its centre the size of the hovered item.
Item {
    id: root

    required property DiskDoctor doctor
    readonly property DiskExplorer explorer: doctor.explorer

    SunburstChart {
        id: chart

        anchors.fill: parent
        center: root.explorer.spot.center
        highlightedID: root.explorer.hoveredID
        colors: Theme.sunburst
        ground: Theme.panel
        ink: Theme.ink
        trackColor: Theme.card
        Accessible.role: Accessible.Chart
        Accessible.name: root.explorer.spot.description
        Accessible.focusable: true
        onHovered: id => root.explorer.hoveredID = id
        onEntered: id => {
            if (!root.explorer.enter(id))
                root.doctor.askAbout(id);
        }
        onUpAsked: root.explorer.goUp()
        onAsked: id => root.doctor.askAbout(id)

        FocusRing {
            targetRadius: width / 2
        }
    }

    Column {
        anchors.centerIn: parent
        width: chart.holeDiameter - Theme.space3

        Label {
            id: figure

            width: parent.width
            text: root.explorer.spot.size
            role: Theme.figure
            // In a small window some figures are wider than the hole.
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 11
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
        Label {
            // The hole is narrower there.
            visible: chart.holeDiameter > 2 * (figure.height + height)
            width: parent.width
            text: root.explorer.spot.name
            role: Theme.small
            color: Theme.ink2
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
        Symbol {
            visible: root.explorer.spot.canGoUp
            anchors.horizontalCenter: parent.horizontalCenter
            name: "chevron.up"
            size: 16
            color: Theme.ink3
        }
    }
}
