import QtQuick
import Ambrel.Kit
import Ambrel.Tools

// An amount in one unit, and what it is in another.
Popover {
    id: root

    required property UnitConverterModel units

    title: qsTr("Unit Converter")
    symbol: "ruler"
    fact: units.face.isWorking ? qsTr("Working…") : ""
    implicitWidth: Scaled.px(380)
    implicitHeight: Scaled.px(296)

    onAboutToOpen: {
        units.begin();
        amount.text = units.face.input;
        amount.selectAll();
    }
    onOpenChanged: if (!open && units)
        units.end()

    PanelColumn {
        ChoiceField {
            width: parent.width
            name: qsTr("Quantity")
            options: root.units.categories
            current: root.units.choice.category
            onChosen: index => root.units.setCategory(index)
        }
        Row {
            width: parent.width
            spacing: Theme.space2
            z: from.isOpen ? 2 : 0

            Field {
                id: amount

                width: parent.width - from.width - parent.spacing
                focus: true
                hint: qsTr("Amount")
                maximumLength: 200
                onTextChanged: root.units.setInput(text)
                onAccepted: root.units.accept()
            }
            ChoiceField {
                id: from

                width: Scaled.px(176)
                name: qsTr("From")
                options: root.units.choice.units
                current: root.units.choice.from
                onChosen: index => root.units.setFrom(index)
            }
        }
        Item {
            width: parent.width
            height: to.height
            z: to.isOpen ? 2 : 0

            IconButton {
                anchors.verticalCenter: parent.verticalCenter
                symbol: "arrow.up.arrow.down"
                label: qsTr("Swap the units")
                onClicked: root.units.swap()
            }
            Label {
                anchors.right: to.left
                anchors.rightMargin: Theme.space3
                anchors.verticalCenter: parent.verticalCenter
                text: qsTr("in")
                color: Theme.ink2
            }
            ChoiceField {
                id: to

                anchors.right: parent.right
                width: Scaled.px(176)
                name: qsTr("To")
                options: root.units.choice.units
                current: root.units.choice.to
                onChosen: index => root.units.setTo(index)
            }
        }
        ResultLine {
            model: root.units
        }
    }
}
