import QtQuick
import Ambrel.Assistant
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Panels
import Ambrel.Usage

SettingsPage {
    id: root

    property ClaudeStatusLineModel statusLine: null
    property ClaudeBudgetModel budget: null
    property ModelServer modelServer: null
    readonly property var categories: ({
            agents: qsTr("Agents"),
            meetings: qsTr("Meetings"),
            limits: qsTr("Limits"),
            system: qsTr("System"),
            health: qsTr("Health")
        })

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
        SettingRow {
            key: "buddyLevel"
            title: qsTr("Buddy speaks up")
            detail: qsTr("Buddy speaks up when an agent needs you, a meeting starts or a limit is near.")
            options: [qsTr("Always"), qsTr("If important"), qsTr("Never")]
        }
        SectionRow {
            title: qsTr("Speaks about")
            enabled: root.settings.buddyLevel !== "off"

            Repeater {
                model: Object.keys(root.categories)

                Chip {
                    required property string modelData
                    text: root.categories[modelData]
                    accessibleRole: Accessible.CheckBox
                    isChosen: root.chosen.includes(modelData)
                    onClicked: root.setCategory(modelData, !isChosen)
                }
            }
        }
        SettingRow {
            key: "buddyOnlyUnfocusedAgents"
            title: qsTr("Only agents out of view")
            detail: qsTr("An agent is in view while its app is in front, and for 20 seconds after. When you come back to an agent after 2 minutes, Buddy's notes list what the others did meanwhile.")
            enabled: root.settings.buddyLevel !== "off"
        }
        SectionRow {
            title: qsTr("Focus sessions")
            detail: qsTr("During a focus session, notes that can wait come at the break. Buddy sleeps when nothing happens.")
            enabled: root.settings.buddyLevel !== "off"
        }
    }
    Section {
        SettingRow {
            key: "quietHoursOn"
            title: qsTr("Quiet hours")
            detail: qsTr("Only what is urgent comes through")
        }
        SettingRow {
            key: "quietStartHour"
            title: qsTr("From")
            controlLabel: qsTr("Quiet from")
            enabled: root.settings.quietHoursOn
            wraps: true
            text: root.timeOf(value)
        }
        SettingRow {
            key: "quietEndHour"
            title: qsTr("To")
            controlLabel: qsTr("Quiet to")
            enabled: root.settings.quietHoursOn
            wraps: true
            text: root.timeOf(value)
        }
    }
    Section {
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
        visible: root.statusLine !== null || root.budget !== null

        // Not by loaders: a row of the column itself knows by its place whether a rule is above it.
        Repeater {
            model: root.statusLine ? [root.statusLine] : []

            ConnectionRow {}
        }
        Repeater {
            model: root.budget ? [root.budget] : []

            ClaudeBudgetRow {
                required property ClaudeBudgetModel modelData

                budget: modelData
            }
        }
    }
}
