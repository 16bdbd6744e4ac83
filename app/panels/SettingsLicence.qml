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
            detail: root.hasProblem ? root.licence.problem : root.licence ? root.licence.advice : ""
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
        SectionRow {
            visible: root.licence !== null && root.licence.isNeeded
            title: qsTr("Checked on this computer alone")
            detail: qsTr("Nobody is asked, and nothing is sent.")
        }
    }
}
