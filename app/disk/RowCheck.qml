import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// The check box of a row; the row itself says to assistive programs whether it is chosen.
CheckBox {
    id: root

    required property FindingEntry row

    visible: row.isSelectable
    checkState: row.checkState
    label: row.title
    activeFocusOnTab: false
    Accessible.ignored: true
    onToggled: checked => {
        root.row.pointed();
        root.row.selectAsked(checked);
    }
}
