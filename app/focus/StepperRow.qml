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
    property string unit

    signal stepped(int value)

    Stepper {
        label: root.title
        value: root.value
        from: root.from
        to: root.to
        step: root.step
        wraps: root.wraps
        unit: root.unit
        onStepped: value => root.stepped(value)
    }
}
