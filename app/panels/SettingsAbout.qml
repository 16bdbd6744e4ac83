import QtQuick
import Ambrel.Kit

SettingsPage {
    id: root

    property string version

    Section {
        width: parent.width

        SectionRow {
            title: "Tilebay"
            detail: qsTr("Live widgets on the edge of your screen.")

            Label {
                text: root.version
                role: Theme.small
                color: Theme.ink2
                anchors.verticalCenter: parent.verticalCenter
            }
        }
    }
}
