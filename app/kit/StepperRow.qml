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
    // What is spoken of it.
    property string label: title
    property alias unit: control.unit
    property alias text: control.text

    signal stepped(int value)

    Stepper {
        id: control
        label: root.label
        value: root.value
        from: root.from
        to: root.to
        step: root.step
        wraps: root.wraps
        onStepped: value => root.stepped(value)
    }
}
