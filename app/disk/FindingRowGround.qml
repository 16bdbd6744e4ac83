import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// What all rows of the findings share: hover and focus highlight, the check box at the left, and at the right the risk,
// the size and a symbol.
Item {
    id: root

    required property FindingEntry entry
    readonly property findingRow row: entry.row
    property bool canPress: true
    property bool showsRisk: false
    property real topInset: 0
    property real checkX: Theme.space6
    property TextRole sizeRole: Theme.body
    // At the right end.
    property string symbol
    property color symbolColor: Theme.ink3
    // Where a rule has its symbol and its words, and the rows below it theirs.
    readonly property real symbolX: Scaled.px(78)
    readonly property real wordsX: Scaled.px(108)
    readonly property real amountInset: Scaled.px(54)
    readonly property real middle: topInset + (height - topInset) / 2
    // Where the words of the row end.
    readonly property real wordsEnd: (showsRisk ? pill.x : amount.x) - Theme.space3
    readonly property alias hovered: hover.hovered
    readonly property bool isSafe: row.riskName === "safe"
    readonly property bool isToReview: row.riskName === "review"

    Rectangle {
        anchors {
            fill: parent
            leftMargin: Theme.space3
            rightMargin: Theme.space3
            topMargin: root.topInset
        }
        radius: Theme.radiusButton
        visible: root.canPress && (hover.hovered || tap.pressed || root.entry.isCurrent)
        color: tap.pressed ? Theme.greySoft : Theme.card
        border.width: root.entry.isCurrent ? 2 : 0
        border.color: Theme.accent
    }
    HoverHandler {
        id: hover
    }
    TapHandler {
        id: tap

        enabled: root.canPress
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: {
            root.entry.pointed();
            root.entry.press();
        }
    }
    // Assistive technology reads the check state from the row.
    CheckBox {
        x: root.checkX
        y: root.middle - height / 2
        visible: root.row.isSelectable
        checkState: root.row.checkState
        label: root.row.title
        activeFocusOnTab: false
        Accessible.ignored: true
        onToggled: checked => {
            root.entry.pointed();
            root.entry.selectAsked(checked);
        }
    }
    Pill {
        id: pill

        x: root.width - Scaled.px(206)
        y: root.middle - height / 2
        visible: root.showsRisk && root.row.isSelectable
        text: root.row.risk
        symbol: root.isSafe ? "checkmark.circle.fill" : root.isToReview ? "eye" : "exclamationmark.triangle.fill"
        tone: root.isSafe ? Theme.green : root.isToReview ? Theme.orange : Theme.red
        Accessible.ignored: true
    }
    TipLabel {
        id: amount

        x: root.width - width - root.amountInset
        y: root.middle - height / 2
        text: root.row.size
        role: root.sizeRole
        Accessible.ignored: true
    }
    Symbol {
        x: root.width - width - Theme.space6
        y: root.middle - height / 2
        visible: root.symbol !== ""
        name: root.symbol
        size: 18
        color: root.symbolColor
    }
}
