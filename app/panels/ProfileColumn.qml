import QtQuick
import Ambrel.Kit
import Ambrel.Model

// The profiles: which one is on the bar, choosing one by hand, a new one, and removing one.
FocusScope {
    id: root

    required property AppModel model
    property bool isNaming: false
    // The row that the pointer holds, its place, and the place that it has come to; -1 while it holds none. Untyped: the
    // row is of a type made here.
    property var held: null
    readonly property int heldIndex: held ? held.index : -1
    property int gapIndex: -1
    property bool isSettling: false

    signal menuWanted(ProfileRow row)

    function add(name) {
        const trimmed = name.trim();
        if (trimmed !== "")
            model.addProfile(trimmed, "");
        endNaming();
    }

    // The button that began it has the keyboard again.
    function endNaming() {
        isNaming = false;
        newProfile.forceActiveFocus();
    }

    // The row has come so far, and goes to the place whose middle it has passed.
    function hold(row, way: real) {
        const top = row.y + way;
        let gap = 0;
        for (let i = 0; i < rows.count; ++i) {
            const other = rows.itemAt(i);
            if (i !== row.index && other.y + other.height / 2 < (i < row.index ? top : top + row.height))
                ++gap;
        }
        gapIndex = gap;
        held = row;
    }
    // The others are in their new places already; the held row springs to its own.
    function letGo() {
        if (!held)
            return;
        const row = held;
        const target = rows.itemAt(gapIndex);
        const step = gapIndex - row.index;
        const top = row.y + row.aside;
        isSettling = true;
        held = null;
        row.fall = top - (step > 0 ? target.y + target.height - row.height : target.y);
        isSettling = false;
        row.fall = 0;
        model.stepProfile(row.profile, step);
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
            topMargin: Theme.space2 - rowList.topPadding
            bottom: foot.top
        }

        Column {
            id: rowList
            width: parent.width
            // The ring of the first row.
            topPadding: 2

            Repeater {
                id: rows
                model: root.model.profileList
                // Somebody else has added or removed one.
                onCountChanged: root.held = null

                ProfileRow {
                    id: row

                    required property int index
                    readonly property bool isHeld: root.held === row
                    readonly property real heldHeight: root.held ? root.held.height : 0
                    // From its place in the column to where it is shown.
                    readonly property real aside: isHeld ? drag.activeTranslation.y : root.heldIndex < 0 ? fall : index > root.heldIndex && index <= root.gapIndex ? -heldHeight : index < root.heldIndex && index >= root.gapIndex ? heldHeight : 0
                    property real fall: 0

                    z: isHeld || !shift.isSettled || activeFocus ? 1 : 0
                    transform: Translate {
                        y: shift.value
                    }
                    width: parent.width
                    canBeRemoved: rows.count > 1
                    onClicked: root.model.pinnedProfileID = isPinned ? "" : profile
                    onRenamed: name => root.model.renameProfile(profile, name)
                    onRemovalWanted: root.model.deleteProfile(profile)
                    onMenuWanted: root.menuWanted(row)
                    onStepWanted: step => root.model.stepProfile(profile, step)

                    MoveSpring {
                        id: shift
                        isInstant: Theme.reducedMotion || row.isHeld || root.isSettling
                        target: row.aside
                    }
                    DragHandler {
                        id: drag
                        target: null
                        xAxis.enabled: false
                        enabled: rows.count > 1
                        grabPermissions: PointerHandler.CanTakeOverFromAnything
                        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad | PointerDevice.Stylus
                        onActiveChanged: {
                            Tips.leave(row);
                            active ? root.hold(row, 0) : root.letGo();
                        }
                        onActiveTranslationChanged: if (active)
                            root.hold(row, activeTranslation.y)
                    }
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
                onCancelled: root.endNaming()
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
            id: newProfile
            visible: !root.isNaming
            width: Math.min(implicitWidth, parent.width)
            kind: Button.Quiet
            text: qsTr("New profile")
            symbol: "plus"
            onClicked: root.isNaming = true
        }
    }
}
