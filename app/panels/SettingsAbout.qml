import QtQuick
import Ambrel.Kit
import Ambrel.Panels

SettingsPage {
    id: root

    signal copyAsked(string text)

    Section {
        SectionRow {
            title: "Tilebay " + (root.area ? root.area.version : "")
            detail: qsTr("Live widgets on the edge of your screen.")

            Button {
                visible: root.area !== null
                text: qsTr("Copy details for a report")
                symbol: "doc.on.doc"
                onClicked: root.copyAsked(root.area.details())
            }
        }
    }
    Section {
        visible: root.area !== null

        SectionRow {
            title: qsTr("Welcome Guide")
            detail: qsTr("What Tilebay shows and reads, and tiles to begin with")
            searchWords: qsTr("First steps tour help")

            Button {
                text: qsTr("Open")
                label: qsTr("Open the Welcome Guide")
                onClicked: root.area.welcomeAsked()
            }
        }
    }
    Section {
        Repeater {
            model: root.area ? root.area.libraries : null

            SectionRow {
                id: line
                required property libraryRow row

                title: row.name
                detail: row.use

                Label {
                    text: line.row.licence
                    role: Theme.small
                    color: Theme.ink2
                    anchors.verticalCenter: parent.verticalCenter
                }
            }
        }
    }
}
