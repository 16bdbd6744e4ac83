import QtQuick
import Ambrel.Kit
import Ambrel.Usage

// The settings row of the user's own budget for Claude, used where Claude's own percentages are not known.
SectionRow {
    id: root

    required property ClaudeBudgetModel budget

    title: qsTr("Your own Claude budget")
    detail: qsTr("Without Claude's own percentages, Buddy speaks up when a 5-hour window has used 80% of it.")

    // The model has the steps, which grow with the budget.
    Stepper {
        label: root.title
        value: 0
        from: root.budget.isOff ? 0 : -1
        to: 1
        text: root.budget.text
        textWidth: 96
        onStepped: by => root.budget.step(by)
    }
}
