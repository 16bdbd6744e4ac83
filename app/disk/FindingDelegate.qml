import QtQuick
import Ambrel.Disk

// One row of the findings: a group, a rule, a reason or an item.
Item {
    id: root

    required property int index
    required property findingRow row
    property bool isCurrent: false
    readonly property alias entry: rowEntry

    implicitHeight: loader.height
    Accessible.role: Accessible.ListItem
    Accessible.name: row.label
    Accessible.focusable: true
    Accessible.focused: isCurrent
    Accessible.checkable: row.isSelectable
    Accessible.checked: row.checkState === Qt.Checked
    Accessible.checkStateMixed: row.checkState === Qt.PartiallyChecked
    Accessible.onPressAction: rowEntry.press()
    Accessible.onToggleAction: rowEntry.toggle()

    FindingEntry {
        id: rowEntry

        row: root.row
        isCurrent: root.isCurrent
    }

    Component {
        id: group

        FindingGroupRow {
            entry: rowEntry
        }
    }
    Component {
        id: finding

        FindingRuleRow {
            entry: rowEntry
        }
    }
    Component {
        id: reason

        FindingReasonRow {
            entry: rowEntry
        }
    }
    Component {
        id: item

        FindingItemRow {
            entry: rowEntry
        }
    }

    Loader {
        id: loader

        width: root.width
        sourceComponent: ({
                group: group,
                finding: finding,
                reason: reason,
                item: item
            })[root.row.kind]
    }
}
