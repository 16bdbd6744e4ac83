import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// A panel of one part of the computer.
Popover {
    id: root

    required property TelemetryArea area
    // The widgets whose parts are read while the panel is open, in addition to those of the visible tiles.
    property var needs: []
    // At the lower edge.
    property string note

    implicitWidth: Scaled.px(340)
    footHeight: note === "" ? 0 : foot.height + Theme.space3

    LiveNeed {
        readings: root.area.readings
        parts: root.needs
        active: root.open
    }
    Label {
        id: foot

        x: Theme.space4
        width: parent.width - 2 * Theme.space4
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.space3
        visible: text !== ""
        text: root.note
        role: Theme.small
        color: Theme.ink2
        wrapMode: Text.WordWrap
    }
}
