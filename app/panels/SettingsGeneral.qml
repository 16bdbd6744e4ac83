import QtQuick
import Ambrel.Kit

SettingsPage {
    id: root

    Section {
        width: parent.width

        SettingChoice {
            title: qsTr("Edge of the screen")
            detail: qsTr("Where the bar is")
            options: [qsTr("Left"), qsTr("Bottom"), qsTr("Right")]
            values: ["left", "bottom", "right"]
            value: root.settings.dockEdge
            onChosen: value => root.settings.dockEdge = value
        }
        SwitchRow {
            title: qsTr("Always show the bar")
            detail: qsTr("When off, it appears when the pointer reaches its edge")
            checked: root.settings.barAlwaysVisible
            onToggled: checked => root.settings.barAlwaysVisible = checked
        }
        SwitchRow {
            title: qsTr("Peek when something needs you")
            detail: qsTr("The bar comes out for a few seconds")
            checked: root.settings.barPeeksForContext
            onToggled: checked => root.settings.barPeeksForContext = checked
        }
    }
    Section {
        width: parent.width

        SwitchRow {
            title: qsTr("Open the clipboard shelf by hovering")
            detail: qsTr("Rest the pointer at the top centre of the screen")
            checked: root.settings.shelfOpensOnHover
            onToggled: checked => root.settings.shelfOpensOnHover = checked
        }
    }
}
