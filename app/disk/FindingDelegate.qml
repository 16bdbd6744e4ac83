import QtQuick
import Ambrel.Disk

// One row of the findings, as its kind asks: a group, a rule, its reason, or an item.
Item {
    id: root

    required property int index
    required property string rowId
    required property string kind
    required property string title
    required property string detail
    required property string size
    required property string symbol
    required property string risk
    required property string riskName
    required property int checkState
    required property bool isSelectable
    required property bool isOpen
    required property string label
    required property string note
    required property bool hasStayed
    property bool isCurrent: false
    readonly property alias entry: entry

    implicitHeight: loader.height
    Accessible.role: Accessible.ListItem
    Accessible.name: label
    Accessible.focusable: true
    Accessible.focused: isCurrent
    Accessible.checkable: isSelectable
    Accessible.checked: checkState === Qt.Checked
    Accessible.checkStateMixed: checkState === Qt.PartiallyChecked
    Accessible.onPressAction: entry.press()
    Accessible.onToggleAction: entry.toggle()

    FindingEntry {
        id: entry

        kind: root.kind
        title: root.title
        detail: root.detail
        size: root.size
        symbol: root.symbol
        risk: root.risk
        riskName: root.riskName
        checkState: root.checkState
        isSelectable: root.isSelectable
        isOpen: root.isOpen
        isCurrent: root.isCurrent
        note: root.note
        hasStayed: root.hasStayed
    }

    Component {
        id: group

        FindingGroupRow {
            row: entry
        }
    }
    Component {
        id: finding

        FindingRuleRow {
            row: entry
        }
    }
    Component {
        id: reason

        FindingReasonRow {
            row: entry
        }
    }
    Component {
        id: item

        FindingItemRow {
            row: entry
        }
    }

    Loader {
        id: loader

        width: root.width
        sourceComponent: root.kind === "group" ? group : root.kind === "finding" ? finding : root.kind === "reason" ? reason : item
    }
}
