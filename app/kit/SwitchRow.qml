import QtQuick
import Ambrel.Kit

// A setting that is on or off. `toggled` says what is wanted.
SectionRow {
    id: root

    property alias checked: control.checked

    signal toggled(bool checked)

    Switch {
        id: control
        label: root.title
        onToggled: checked => root.toggled(checked)
    }
}
