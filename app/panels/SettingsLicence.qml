import QtQuick
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Panels

SettingsPage {
    id: root

    readonly property LicenseFile licence: area ? area.licence : null
    readonly property bool hasProblem: licence !== null && licence.problem !== ""

    signal purchaseAsked

    Section {
        SectionRow {
            title: root.licence ? root.licence.text : ""
            detail: root.hasProblem ? root.licence.problem : root.licence && root.licence.isNeeded ? qsTr("It is checked on this computer alone, without asking anybody.") : ""
            detailColor: root.hasProblem ? Theme.red.text : Theme.ink2
            searchWords: qsTr("Licence Pro")

            Button {
                visible: root.licence !== null && root.licence.isNeeded
                text: qsTr("Choose the file…")
                onClicked: root.licence.choose()
            }
            Button {
                visible: root.licence !== null && !root.licence.isValid
                kind: Button.Primary
                text: qsTr("Buy Tilebay Pro…")
                onClicked: root.purchaseAsked()
            }
        }
    }
}
