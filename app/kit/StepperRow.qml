import QtQuick
import Ambrel.Kit

// A setting that is a whole number.
SectionRow {
    id: root

    required property int value
    property int from: 1
    property int to: 100
    property int step: 1
    property bool wraps: false
    property alias unit: control.unit
    property alias text: control.text
    property alias label: control.label

    signal stepped(int value)

    Stepper {
        id: control
        label: root.title
        value: root.value
        from: root.from
        to: root.to
        step: root.step
        wraps: root.wraps
        onStepped: value => root.stepped(value)
    }
}
