import QtQuick
import Ambrel.Kit
import Ambrel.Model

SettingsPage {
    id: root

    // Of a choice: its words here.
    readonly property var words: ({
            airQualityScale: [qsTr("US"), qsTr("European")],
            weekNumbering: [qsTr("ISO 8601"), qsTr("As the locale")]
        })

    // Untyped: the lint does not know the script methods of lists of strings.
    readonly property var tileKeys: settings.keysOf("tiles")

    signal customizeAsked

    Section {
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
    Section {
        // The same as in the panels of their tiles.
        Repeater {
            model: root.settings.keysOf("panel")

            SettingRow {
                required property string modelData
                key: modelData
                options: root.words[key] || []
                hint: "https://…"
            }
        }
    }
    Section {
        Repeater {
            model: root.tileKeys.filter(key => key !== "clipboardPreviewInBar")

            SettingRow {
                required property string modelData
                key: modelData
                hint: "https://…"
            }
        }
    }
}
