import QtQuick
import Ambrel.Kit

SettingsPage {
    id: root

    Section {
        width: parent.width

        SettingChoice {
            title: qsTr("Theme")
            detail: qsTr("Follows the desktop unless you choose one")
            options: [qsTr("System"), qsTr("Dark"), qsTr("Light")]
            values: ["system", "dark", "light"]
            value: root.settings.theme
            onChosen: value => root.settings.theme = value
        }
        SettingChoice {
            title: qsTr("Motion")
            detail: qsTr("Reduced swaps movement for a short fade")
            options: [qsTr("Full"), qsTr("Reduced")]
            values: [false, true]
            value: root.settings.reduceMotion
            onChosen: value => root.settings.reduceMotion = value
        }
    }
}
