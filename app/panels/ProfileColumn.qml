import QtQuick
import Ambrel.Kit
import Ambrel.Model

// The profiles: which one is on the bar, choosing one by hand, a new one, and removing one.
FocusScope {
    id: root

    required property AppModel model
    property bool isNaming: false

    signal menuWanted(ProfileRow row)

    function add(name) {
        const trimmed = name.trim();
        if (trimmed !== "")
            model.addProfile(trimmed, "");
        isNaming = false;
    }

    Label {
        id: head
        x: 18
        y: Theme.space4
        text: qsTr("Profiles")
        role: Theme.smallMedium
        color: Theme.ink2
        Accessible.role: Accessible.Heading
    }
    ScrollView {
        anchors {
            left: parent.left
            right: parent.right
            top: head.bottom
            topMargin: Theme.space2
            bottom: foot.top
        }

        Column {
            width: parent.width

            Repeater {
                id: rows
                model: root.model.profileList

                ProfileRow {
                    id: row

                    width: parent.width
                    canBeRemoved: rows.count > 1
                    onClicked: root.model.pinnedProfileID = isPinned ? "" : profile
                    onRenamed: name => root.model.renameProfile(profile, name)
                    onRemovalWanted: root.model.deleteProfile(profile)
                    onMenuWanted: root.menuWanted(row)
                    onStepWanted: step => root.model.stepProfile(profile, step)
                }
            }
        }
    }
    Column {
        id: foot
        x: Theme.space2
        width: parent.width - 2 * Theme.space2
        y: parent.height - height - Theme.space2
        spacing: Theme.space1

        Loader {
            width: parent.width
            active: root.isNaming
            visible: active
            sourceComponent: NewProfile {
                onAdded: name => root.add(name)
                onCancelled: root.isNaming = false
            }
        }
        Button {
            visible: root.model.pinnedProfileID !== "" && !root.isNaming
            width: Math.min(implicitWidth, parent.width)
            kind: Button.Quiet
            text: qsTr("Auto (by display)")
            symbol: "display"
            onClicked: root.model.pinnedProfileID = ""
        }
        Button {
            visible: !root.isNaming
            width: Math.min(implicitWidth, parent.width)
            kind: Button.Quiet
            text: qsTr("New profile")
            symbol: "plus"
            onClicked: root.isNaming = true
        }
    }
}
