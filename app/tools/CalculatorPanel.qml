import QtQuick
import Ambrel.Kit
import Ambrel.Tools

// An expression to type, its value, and earlier results.
Popover {
    id: root

    required property CalculatorModel calculator

    title: qsTr("Calculator")
    symbol: "plus.forwardslash.minus"
    fact: calculator.face.isWorking ? qsTr("Working…") : ""
    implicitWidth: Scaled.px(380)
    fitted: column

    onAboutToOpen: {
        calculator.begin();
        field.text = calculator.face.input;
        field.selectAll();
    }
    onOpenChanged: if (!open && calculator)
        calculator.end()

    PanelColumn {
        id: column

        Field {
            id: field

            width: parent.width
            height: Scaled.px(40)
            focus: true
            label: qsTr("Expression")
            hint: qsTr("For example 18 % of 240, or 5 mi to km")
            maximumLength: 2000
            onTextChanged: root.calculator.setInput(text)
            onAccepted: root.calculator.accept()
        }
        ResultLine {
            model: root.calculator
        }
        ListView {
            width: parent.width
            height: Math.min(contentHeight, Scaled.px(220))
            visible: count > 0
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: root.calculator.history
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Earlier results")

            delegate: ListRow {
                required property calculatorRow row

                width: ListView.view.width
                title: row.result
                detail: row.expression
                onClicked: {
                    field.text = row.expression;
                    field.input.forceActiveFocus();
                }
            }
        }
    }
}
