import QtQuick
import Ambrel.Assistant
import Ambrel.Kit
import Ambrel.Panels
import Ambrel.Usage

SettingsPage {
    id: root

    property ClaudeStatusLineModel statusLine: null
    property ClaudeBudgetModel budget: null
    property ModelServer modelServer: null
    // Nothing tells of meetings yet.
    property bool hasCalendar: false
    readonly property var categories: [
        {
            name: "agents",
            title: qsTr("Agents")
        },
        {
            name: "meetings",
            title: qsTr("Meetings")
        },
        {
            name: "limits",
            title: qsTr("Limits")
        },
        {
            name: "system",
            title: qsTr("System")
        },
        {
            name: "health",
            title: qsTr("Health")
        }
    ]

    // Untyped: the lint does not know the script methods of lists of strings.
    readonly property var chosen: settings.buddyCategories

    // Without seconds, which some locales' short times have.
    readonly property string timeFormat: Qt.locale().timeFormat(Locale.ShortFormat).replace(":ss", "")

    function timeOf(hour: int): string {
        return new Date(2000, 0, 1, hour, 0).toLocaleTimeString(Qt.locale(), timeFormat);
    }
    function setCategory(name: string, isOn: bool) {
        const others = chosen.filter(other => other !== name);
        settings.buddyCategories = isOn ? others.concat([name]) : others;
    }

    Section {
        width: parent.width

        SettingChoice {
            title: qsTr("Buddy speaks up")
            detail: qsTr("Buddy speaks up when an agent needs you, a meeting starts or a limit is near.")
            options: [qsTr("Always"), qsTr("If important"), qsTr("Never")]
            values: ["all", "important", "off"]
            value: root.settings.buddyLevel
            onChosen: value => root.settings.buddyLevel = value
        }
        SectionRow {
            title: qsTr("Speaks about")
            enabled: root.settings.buddyLevel !== "off"

            Repeater {
                model: root.categories.filter(category => category.name !== "meetings" || root.hasCalendar)

                Chip {
                    required property var modelData
                    text: modelData.title
                    accessibleRole: Accessible.CheckBox
                    isChosen: root.chosen.includes(modelData.name)
                    onClicked: root.setCategory(modelData.name, !isChosen)
                }
            }
        }
        SwitchRow {
            title: qsTr("Only agents out of view")
            detail: qsTr("An agent is in view while its app is in front, and for 20 seconds after. When you come back to an agent after 2 minutes, Buddy's notes list what the others did meanwhile.")
            enabled: root.settings.buddyLevel !== "off"
            checked: root.settings.buddyOnlyUnfocusedAgents
            onToggled: checked => root.settings.buddyOnlyUnfocusedAgents = checked
        }
        SectionRow {
            title: qsTr("Focus sessions")
            detail: qsTr("During a focus session, notes that can wait come at the break. Buddy sleeps when nothing happens.")
            enabled: root.settings.buddyLevel !== "off"
        }
    }
    Section {
        width: parent.width

        SwitchRow {
            title: qsTr("Quiet hours")
            detail: qsTr("Only what is urgent comes through")
            checked: root.settings.quietHoursOn
            onToggled: checked => root.settings.quietHoursOn = checked
        }
        StepperRow {
            title: qsTr("From")
            label: qsTr("Quiet from")
            enabled: root.settings.quietHoursOn
            value: root.settings.quietStartHour
            from: 0
            to: 23
            wraps: true
            text: root.timeOf(value)
            onStepped: hour => root.settings.quietStartHour = hour
        }
        StepperRow {
            title: qsTr("To")
            label: qsTr("Quiet to")
            enabled: root.settings.quietHoursOn
            value: root.settings.quietEndHour
            from: 0
            to: 23
            wraps: true
            text: root.timeOf(value)
            onStepped: hour => root.settings.quietEndHour = hour
        }
    }
    Section {
        width: parent.width
        visible: root.modelServer !== null

        Loader {
            width: parent.width
            active: root.modelServer !== null
            sourceComponent: ModelServerRows {
                server: root.modelServer
            }
        }
    }
    Section {
        width: parent.width
        visible: root.statusLine !== null || root.budget !== null

        Loader {
            width: parent.width
            active: root.statusLine !== null
            sourceComponent: ClaudeLimitsRow {
                statusLine: root.statusLine
            }
        }
        Loader {
            width: parent.width
            active: root.budget !== null
            sourceComponent: ClaudeBudgetRow {
                budget: root.budget
            }
        }
    }
}
