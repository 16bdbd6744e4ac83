import QtQuick
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Panels

SettingsPage {
    id: root

    signal copyAsked(string text)

    Section {
        SettingRow {
            key: "dockEdge"
            title: qsTr("Edge of the screen")
            detail: qsTr("Where the bar is")
            options: [qsTr("Left"), qsTr("Bottom"), qsTr("Right")]
            values: ["left", "bottom", "right"]
        }
        SettingRow {
            key: "barAlwaysVisible"
            title: qsTr("Always show the bar")
            detail: qsTr("When off, it appears when the pointer reaches its edge")
        }
        SettingRow {
            key: "barPeeksForContext"
            title: qsTr("Peek when something needs you")
            detail: qsTr("The bar comes out for a few seconds")
        }
        SettingRow {
            key: "shelfOpensOnHover"
            title: qsTr("Open the clipboard shelf by hovering")
            detail: qsTr("Rest the pointer at the top centre of the screen")
        }
        Repeater {
            model: root.area ? [root.area.startAtLogin] : []

            SwitchRow {
                id: login
                required property StartAtLogin modelData

                title: qsTr("Start at login")
                detail: modelData.problem !== "" ? modelData.problem : qsTr("The desktop starts Tilebay with your session")
                detailColor: modelData.problem !== "" ? Theme.red.text : Theme.ink2
                checked: modelData.isOn
                onToggled: checked => login.modelData.isOn = checked
            }
        }
    }
    Section {
        visible: root.area !== null

        SectionRow {
            title: qsTr("Keys")
            detail: root.area ? root.area.keys.advice : ""
            searchWords: qsTr("Shortcut hot key keyboard")

            Button {
                anchors.verticalCenter: parent.verticalCenter
                visible: root.area !== null && root.area.keys.canConfigure
                text: qsTr("Change…")
                label: qsTr("Change the keys in the desktop's settings")
                onClicked: root.area.keys.configure()
            }
            Button {
                anchors.verticalCenter: parent.verticalCenter
                visible: root.area !== null && root.area.keys.canAsk
                text: qsTr("Ask the Desktop…")
                label: qsTr("Ask the desktop for the keys")
                onClicked: root.area.keys.askAgain()
            }
        }
        Repeater {
            model: root.area ? root.area.keys.rows : null

            HotKeyRow {
                keys: root.area.keys
                onCopyAsked: text => root.copyAsked(text)
            }
        }
    }
    Section {
        visible: root.area !== null

        Repeater {
            model: root.area ? [root.area.choices] : []

            SectionRow {
                id: choices
                required property ChoicesModel modelData

                title: qsTr("All choices as one file")
                detail: modelData.report !== "" ? modelData.report : qsTr("Settings and profiles, for another computer or to keep")
                detailColor: modelData.hasProblem ? Theme.red.text : Theme.ink2
                searchWords: qsTr("Export import backup")

                Button {
                    text: qsTr("Export…")
                    label: qsTr("Export all choices")
                    onClicked: choices.modelData.chooseExport()
                }
                Button {
                    text: qsTr("Import…")
                    label: qsTr("Import choices")
                    onClicked: choices.modelData.chooseImport()
                }
            }
        }
    }
}
