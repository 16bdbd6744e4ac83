import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Panels

SettingsPage {
    id: root

    property ClipboardModel clipboard: null
    property bool asksToClear: false

    Section {
        SettingRow {
            key: "clipboardEnabled"
            title: qsTr("Keep a clipboard history")
            detail: qsTr("It stays on this computer")
        }
        SettingRow {
            key: "clipboardLimit"
            title: qsTr("Items to keep")
            enabled: root.settings.clipboardEnabled
            options: ["100", "300", "1000", "10000"]
            values: [100, 300, 1000, 10000]
        }
        SettingRow {
            key: "clipboardMaxAgeDays"
            title: qsTr("Forget after")
            detail: qsTr("Pinned items stay")
            enabled: root.settings.clipboardEnabled
            options: [qsTr("Never"), qsTr("1 day"), qsTr("7 days"), qsTr("30 days")]
            values: [0, 1, 7, 30]
        }
        SettingRow {
            key: "clipboardForgetSensitive"
            title: qsTr("Forget secrets soon")
            detail: qsTr("One-time codes, keys and card numbers, after an hour")
            enabled: root.settings.clipboardEnabled
        }
        SettingRow {
            key: "clipboardTextMegabytes"
            title: qsTr("Largest text")
            detail: qsTr("What is larger gets a card that says so")
            enabled: root.settings.clipboardEnabled
            options: [qsTr("1 MB"), qsTr("32 MB"), qsTr("128 MB")]
            values: [1, 32, 128]
        }
        SettingRow {
            key: "clipboardPictureMegabytes"
            title: qsTr("Largest picture")
            enabled: root.settings.clipboardEnabled
            options: [qsTr("16 MB"), qsTr("64 MB"), qsTr("256 MB")]
            values: [16, 64, 256]
        }
        SettingRow {
            key: "clipboardListMegabytes"
            title: qsTr("Longest list of files")
            enabled: root.settings.clipboardEnabled
            options: [qsTr("1 MB"), qsTr("4 MB"), qsTr("16 MB")]
            values: [1, 4, 16]
        }
        SectionRow {
            visible: root.clipboard !== null
            title: root.asksToClear ? qsTr("Clear clipboard history?") : qsTr("Clear the history")
            detail: root.asksToClear ? qsTr("Pinned items and items in collections stay.") : root.clipboard ? root.clipboard.face.summary : ""

            Button {
                visible: root.asksToClear
                text: qsTr("Cancel")
                onClicked: root.asksToClear = false
            }
            Button {
                text: root.asksToClear ? qsTr("Clear") : qsTr("Clear…")
                isCareful: true
                enabled: root.clipboard !== null && !root.clipboard.face.isEmpty
                onClicked: {
                    if (root.asksToClear)
                        root.clipboard.clearHistory();
                    root.asksToClear = !root.asksToClear;
                }
            }
        }
    }
    TextListSection {
        id: ignored
        title: qsTr("Programs to ignore")
        detail: qsTr("What is copied in them is never kept")
        hint: qsTr("Name, as on its cards")
        removeLabel: qsTr("Keep copies of %1")
        texts: root.settings.ignoredBundleIDs
        nameOf: program => root.clipboard ? root.clipboard.nameOfProgram(program) : program
        onChosen: texts => root.settings.ignoredBundleIDs = texts
    }
    Section {
        visible: recent.count > 0

        SectionRow {
            title: qsTr("Copied from lately")

            Flow {
                width: 420
                spacing: Theme.space1
                layoutDirection: Qt.RightToLeft

                Repeater {
                    id: recent
                    model: root.clipboard ? root.clipboard.recentPrograms : []

                    Chip {
                        required property var modelData
                        text: modelData.name
                        symbol: "plus"
                        onClicked: ignored.add(modelData.id)
                    }
                }
            }
        }
    }
}
