import QtQuick
import Ambrel.Kit
import Ambrel.Panels

SettingsPage {
    id: root

    // 0: not asked yet, 1: asked once, 2: asked a second time.
    property int deletionStep: 0
    readonly property PrivacyModel privacy: area ? area.privacy : null

    Component.onCompleted: if (privacy)
        privacy.look()

    Section {
        SectionRow {
            title: qsTr("What Tilebay keeps")
            detail: qsTr("All of it stays on this computer. Deleting starts Tilebay again for a moment.")
        }
        Repeater {
            model: root.privacy ? root.privacy.kept : null

            PrivacyDataRow {
                privacy: root.privacy
            }
        }
    }
    Section {
        SectionRow {
            title: qsTr("What Tilebay reads")
            detail: qsTr("Files of other programs. They are only read, but for the connections that you make yourself.")
        }
        Repeater {
            model: root.privacy ? root.privacy.read : null

            PrivacyDataRow {
                privacy: root.privacy
            }
        }
        SectionRow {
            title: qsTr("The desktop")
            detail: qsTr("Which program is in front, what is copied, where the pointer is at the screen's edge, and how busy the computer is")
        }
    }
    Section {
        SectionRow {
            title: qsTr("What leaves this computer")
            detail: qsTr("Requests for the tiles that you have put on the bar: the weather's place to its server, your calendars' and bookmarks' addresses to their own. No copies, no notes, no conversations, and nothing to Tilebay's makers.")
            searchWords: qsTr("network internet telemetry")
        }
    }
    Section {
        SectionRow {
            title: [qsTr("Delete everything"), qsTr("Delete everything that Tilebay keeps?"), qsTr("Really? It cannot be undone.")][root.deletionStep]
            detail: [qsTr("History, lists, profiles and choices; connections to other programs are undone"), qsTr("Your licence stays."), qsTr("Tilebay starts again as on the first day.")][root.deletionStep]

            Button {
                visible: root.deletionStep > 0
                text: qsTr("Cancel")
                onClicked: root.deletionStep = 0
            }
            Button {
                text: [qsTr("Delete…"), qsTr("Continue…"), qsTr("Delete everything")][root.deletionStep]
                label: [qsTr("Delete everything…"), qsTr("Continue…"), qsTr("Delete everything")][root.deletionStep]
                isCareful: true
                enabled: root.privacy !== null
                onClicked: {
                    if (root.deletionStep === 2)
                        root.privacy.deleteKept("");
                    else
                        ++root.deletionStep;
                }
            }
        }
    }
}
