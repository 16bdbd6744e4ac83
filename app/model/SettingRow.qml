import QtQuick
import Ambrel.Kit
import Ambrel.Model

// A setting by its key: a switch, a number, or a choice of a few values. What it takes follows from the settings' table.
SectionRow {
    id: root

    required property string key
    readonly property alias value: setting.value
    // What is read out for its control.
    property string controlLabel: title
    // The texts of a choice, and what is stored for each of them.
    property list<string> options
    property var values: setting.words
    // Of a number.
    property int step: 1
    property bool wraps: false
    property string unit
    property string text: value + (unit === "" ? "" : " " + unit)

    SettingValue {
        id: setting
        key: root.key
    }
    Loader {
        sourceComponent: root.options.length > 0 ? choice : setting.isSwitch ? onOff : number
    }
    Component {
        id: onOff

        Switch {
            label: root.controlLabel
            checked: setting.value
            onToggled: checked => setting.value = checked
        }
    }
    Component {
        id: choice

        Segments {
            label: root.controlLabel
            options: root.options
            current: root.values.indexOf(setting.value)
            onChosen: index => setting.value = root.values[index]
        }
    }
    Component {
        id: number

        Stepper {
            label: root.controlLabel
            value: setting.value
            from: setting.least
            to: setting.most
            step: root.step
            wraps: root.wraps
            text: root.text
            onStepped: value => setting.value = value
        }
    }
}
