import QtQuick
import Ambrel.Kit
import Ambrel.Model

// A setting by its key: a switch, a number, a text, or a choice of a few values. What it takes, and what it is called
// where its page has no words of its own, follows from the settings' table.
SectionRow {
    id: root

    required property string key
    readonly property alias value: setting.value
    // What is read out for its control.
    property string controlLabel: title
    // The texts of a choice, and what is stored for each of them.
    property list<string> options
    property var values: setting.words
    // Words without a text of their own speak for themselves.
    readonly property var choices: options.length > 0 ? options : setting.words
    // Of a number.
    property int step: 1
    property bool wraps: false
    property string unit
    property string text: value + (unit === "" ? "" : " " + unit)
    // Of a text.
    property string hint
    property bool isRefused: false

    title: setting.description
    detail: isRefused ? qsTr("An address like https://server.example, or nothing") : ""
    detailColor: isRefused ? Theme.red.text : Theme.ink2
    searchWords: setting.description + " " + key

    SettingValue {
        id: setting
        key: root.key
    }
    Loader {
        sourceComponent: root.choices.length > 0 ? choice : setting.isSwitch ? onOff : setting.isText ? line : number
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
        id: line

        Field {
            width: Scaled.px(260)
            label: root.controlLabel
            hint: root.hint === "" ? root.controlLabel : root.hint
            text: setting.value
            onAccepted: commit()
            onActiveFocusChanged: if (!activeFocus)
                commit()

            function commit() {
                setting.value = text.trim();
                root.isRefused = setting.value !== text.trim();
            }
        }
    }
    Component {
        id: choice

        Segments {
            label: root.controlLabel
            options: root.choices
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
