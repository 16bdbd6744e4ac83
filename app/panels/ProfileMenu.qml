import QtQuick
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Panels

// What can be done with a profile, over the panel. A click beside it or Escape closes it.
Item {
    id: root

    required property AppModel model
    // The row that it belongs to; none while it is closed.
    property ProfileRow row: null
    readonly property string profile: row ? row.profile : ""
    readonly property string trigger: row ? row.trigger : ""

    function openFor(target: ProfileRow) {
        row = target;
        menu.y = Math.max(0, Math.min(height - menu.height, target.mapToItem(root, 0, target.height).y));
        menu.focusFirst();
    }
    // The row has the keyboard again.
    function close() {
        const last = row;
        row = null;
        if (last)
            last.forceActiveFocus();
    }

    visible: row !== null

    function choose(when: string) {
        model.setTrigger(profile, when);
        close();
    }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onPressed: root.close()
        onWheel: wheel => wheel.accepted = true
    }
    Menu {
        id: menu

        x: Theme.space4
        width: Math.min(implicitWidth * Theme.textScale, parent.width - 2 * x)
        implicitWidth: 300
        onCloseRequested: root.close()

        MenuRow {
            text: qsTr("Rename")
            symbol: "pencil"
            keys: qsTr("F2")
            onClicked: {
                const target = root.row;
                root.close();
                target.rename();
            }
        }
        MenuRow {
            text: qsTr("Duplicate")
            symbol: "doc.on.doc"
            onClicked: {
                root.model.duplicateProfile(root.profile);
                root.close();
            }
        }
        MenuRow {
            text: qsTr("Move Up")
            symbol: "arrow.up"
            keys: qsTr("Ctrl ↑")
            onClicked: {
                root.model.stepProfile(root.profile, -1);
                root.close();
            }
        }
        MenuRow {
            text: qsTr("Move Down")
            symbol: "arrow.down"
            keys: qsTr("Ctrl ↓")
            onClicked: {
                root.model.stepProfile(root.profile, 1);
                root.close();
            }
        }
        MenuRule {}
        MenuRow {
            text: qsTr("With the built-in display alone")
            isChecked: root.trigger === "builtinOnly"
            onClicked: root.choose("builtinOnly")
        }
        MenuRow {
            text: qsTr("With an external display")
            isChecked: root.trigger === "external"
            onClicked: root.choose("external")
        }
        MenuRow {
            text: qsTr("By hand only")
            isChecked: root.trigger === ""
            onClicked: root.choose("")
        }
        MenuRule {}
        MenuRow {
            text: qsTr("Delete…")
            symbol: "trash"
            keys: qsTr("Delete")
            isCareful: true
            enabled: root.row !== null && root.row.canBeRemoved
            onClicked: {
                const target = root.row;
                root.close();
                target.ask();
            }
        }
    }
}
