import QtQuick
import Ambrel.Kit
import Ambrel.Panels

SettingsPage {
    id: root

    required property AppearanceSettings appearance

    Section {
        width: parent.width

        SettingChoice {
            title: qsTr("Theme")
            detail: qsTr("Follows the desktop unless you choose one")
            options: [qsTr("System"), qsTr("Dark"), qsTr("Light")]
            values: ["system", "dark", "light"]
            value: root.appearance.theme
            onChosen: value => root.appearance.theme = value
        }
        SettingChoice {
            title: qsTr("Motion")
            detail: qsTr("Reduced swaps movement for a short fade")
            options: [qsTr("Full"), qsTr("Reduced")]
            values: [false, true]
            value: root.appearance.reducesMotion
            onChosen: value => root.appearance.reducesMotion = value
        }
    }
}
