import QtQuick
import Ambrel.Kit
import Ambrel.Model

SettingsPage {
    id: root

    signal customizeAsked

    Section {
        width: parent.width

        SectionRow {
            title: qsTr("Tiles and profiles")
            detail: qsTr("Choose what is on the bar, and when")

            Button {
                text: qsTr("Customize…")
                symbol: "square.grid.2x2"
                onClicked: root.customizeAsked()
            }
        }
        SettingRow {
            key: "clipboardPreviewInBar"
            title: qsTr("Show the last copy on the bar")
            detail: qsTr("In the clipboard tile; secrets stay hidden")
        }
    }
}
