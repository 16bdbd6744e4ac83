import QtQuick
import Ambrel.Feeds
import Ambrel.Kit

// An amount, its two currencies and what it is in all others. A click on a row chooses the one of the two that is lit.
Popover {
    id: root

    required property CurrencyModel currency
    readonly property currencyFace face: currency.face
    property bool choosesFrom: false

    implicitWidth: Scaled.px(400)
    implicitHeight: Scaled.px(500)
    title: qsTr("Currency")
    symbol: "dollarsign.arrow.circlepath"
    fact: face.day
    onAboutToOpen: {
        choosesFrom = false;
        amount.text = face.amount;
        amount.selectAll();
        currency.begin();
    }
    onOpenChanged: if (!open && currency) // it may have ended before its panel
        currency.end()

    PanelColumn {
        id: column

        Field {
            id: amount

            width: parent.width
            focus: true
            maximumLength: 24
            hint: qsTr("Amount")
            onTextChanged: if (root.open)
                root.currency.setAmount(text)
        }
        Item {
            width: parent.width
            height: swap.height

            Chip {
                id: from

                text: root.face.from
                label: qsTr("From %1").arg(root.face.fromName)
                tip: label
                isChosen: root.choosesFrom
                anchors.verticalCenter: parent.verticalCenter
                onClicked: root.choosesFrom = true
            }
            IconButton {
                id: swap

                x: from.width + Theme.space2
                symbol: "arrow.left.arrow.right"
                label: qsTr("Swap the currencies")
                onClicked: root.currency.swap()
            }
            Chip {
                x: swap.x + swap.width + Theme.space2
                text: root.face.to
                label: qsTr("To %1").arg(root.face.toName)
                tip: label
                isChosen: !root.choosesFrom
                anchors.verticalCenter: parent.verticalCenter
                onClicked: root.choosesFrom = false
            }
            TipLabel {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, 180)
                text: root.face.rateText
                role: Theme.small
                color: Theme.ink2
                horizontalAlignment: Text.AlignRight
            }
        }
        Item {
            width: parent.width
            height: Math.max(result.height, copy.height)

            TipLabel {
                id: result

                anchors.verticalCenter: parent.verticalCenter
                width: parent.width - copy.width - Theme.space2
                text: root.face.fault !== "" ? root.face.fault : root.face.result
                role: root.face.fault !== "" ? Theme.body : Theme.value
                color: root.face.fault !== "" ? Theme.orange.text : Theme.ink
            }
            Button {
                id: copy

                anchors.right: parent.right
                symbol: "doc.on.doc"
                text: qsTr("Copy")
                enabled: root.face.result !== ""
                onClicked: root.currency.copy()
            }
        }
    }
    EmptyState {
        anchors.centerIn: parent
        visible: root.face.problem !== ""
        width: parent.width
        symbol: "dollarsign.arrow.circlepath"
        title: root.face.problem
        sentence: qsTr("The rates appear here as soon as the service answers, and stay when it does not.")
    }
    RowsView {
        id: view

        anchors {
            fill: parent
            margins: Theme.space2
            topMargin: column.y + column.height + Theme.space2
        }
        model: root.currency.rows

        delegate: RowSlot {
            id: item

            required property currencyRow row

            ListRow {
                width: parent.width
                focus: true
                title: item.row.code
                detail: item.row.name
                isCurrent: root.choosesFrom ? item.row.isFrom : item.row.isTo
                label: item.row.name + ", " + item.row.amount
                onClicked: root.choosesFrom ? root.currency.setFrom(item.row.code) : root.currency.setTo(item.row.code)

                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    text: item.row.amount
                    color: Theme.ink2
                    rightPadding: Theme.space2
                    Accessible.ignored: true
                }
            }
        }
    }
}
