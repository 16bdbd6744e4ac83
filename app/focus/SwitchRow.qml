import QtQuick
import Ambrel.Kit

// A setting that is on or off.
SectionRow {
    id: root

    required property bool checked

    signal toggled(bool checked)

    Switch {
        label: root.title
        checked: root.checked
        onToggled: checked => root.toggled(checked)
    }
}
