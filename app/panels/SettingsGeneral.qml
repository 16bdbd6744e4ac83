import QtQuick
import Ambrel.Kit
import Ambrel.Model

SettingsPage {
    id: root

    Section {
        width: parent.width

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
    }
    Section {
        width: parent.width

        SettingRow {
            key: "shelfOpensOnHover"
            title: qsTr("Open the clipboard shelf by hovering")
            detail: qsTr("Rest the pointer at the top centre of the screen")
        }
    }
}
