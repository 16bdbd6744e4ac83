import QtQuick
import Ambrel.Kit
import Ambrel.Model

SettingsPage {
    id: root

    Section {
        SettingRow {
            key: "theme"
            title: qsTr("Theme")
            detail: qsTr("Follows the desktop unless you choose one")
            options: [qsTr("System"), qsTr("Dark"), qsTr("Light")]
        }
        SettingRow {
            key: "reduceMotion"
            title: qsTr("Motion")
            detail: qsTr("Reduced swaps movement for a short fade")
            options: [qsTr("Full"), qsTr("Reduced")]
            values: [false, true]
        }
    }
}
