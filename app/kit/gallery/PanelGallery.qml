import QtQuick
import Ambrel.Kit

// What floats: menu, toast, tip, bubble, and a panel with rows.
Column {
    id: root

    spacing: 28

    Row {
        spacing: 40

        Menu {
            objectName: "menu"

            MenuRow {
                text: "Open panel"
                symbol: "arrow.up.left.and.arrow.down.right"
                keys: "Enter"
            }
            MenuRow {
                text: "Refresh"
                symbol: "arrow.clockwise"
                keys: "F5"
                looksHovered: true
            }
            MenuRow {
                text: "Width"
                symbol: "rectangle.compress.vertical"
            }
            MenuRule {}
            MenuRow {
                text: "Remove from bar"
                symbol: "trash"
                keys: "Delete"
                isCareful: true
            }
        }
        Column {
            spacing: 24

            Toast {
                objectName: "toast"
                title: "Copied"
                action: "Show"
                isShown: true
            }
            Tip {
                objectName: "tip"
                text: "Scan again"
                keys: "F5"
            }
        }
    }
    Row {
        spacing: 40

        Bubble {
            objectName: "bubble"
            width: 250
            tailAt: 48

            Column {
                width: parent.width
                spacing: 8

                Label {
                    width: parent.width
                    text: "An agent needs you"
                    role: Theme.rowTitle
                }
                Label {
                    width: parent.width
                    text: "It asks to run the test suite in web-shop."
                    color: Theme.ink2
                    wrapMode: Text.WordWrap
                }
                Button {
                    kind: Button.Primary
                    size: 28
                    text: "Open session"
                }
            }
        }
        Section {
            objectName: "section"
            width: 250

            SectionRow {
                title: "Motion"
                detail: "Reduced swaps movement for a fade"

                Switch {
                    label: "Motion"
                    checked: true
                }
            }
            SectionRow {
                title: "Theme"

                Segments {
                    options: ["Dark", "Light"]
                }
            }
        }
    }
    Popover {
        objectName: "panel"
        width: 544
        height: 240
        title: "AI Agents"
        symbol: "sparkles"
        headerItems: [
            Pill {
                text: "1 need you"
                tone: Theme.orange
                hasDot: false
                anchors.verticalCenter: parent.verticalCenter
            },
            IconButton {
                symbol: "gearshape.fill"
                label: "Settings"
                anchors.verticalCenter: parent.verticalCenter
            }
        ]

        ScrollView {
            id: list
            anchors.fill: parent

            Column {
                x: 8
                width: parent.width - 16

                Repeater {
                    model: ["Fix the flaky sign-in test", "Tidy the settings page", "Write the export command", "Explain the crash log", "Sketch the search index"]

                    ListRow {
                        id: row
                        required property string modelData
                        required property int index
                        width: parent.width
                        symbol: index % 2 ? "chevron.left.forwardslash.chevron.right" : "terminal"
                        title: modelData
                        detail: "web-shop · asks to run the test suite"
                        looksHovered: index === 1

                        Pill {
                            text: row.index < 2 ? "Needs you" : "Working"
                            tone: row.index < 2 ? Theme.orange : Theme.blue
                            anchors.verticalCenter: parent.verticalCenter
                        }
                        Label {
                            width: 44
                            text: "2 min"
                            role: Theme.subLine
                            color: Theme.ink2
                            horizontalAlignment: Text.AlignRight
                            anchors.verticalCenter: parent.verticalCenter
                        }
                    }
                }
            }
        }
    }
    EmptyState {
        objectName: "empty state"
        width: 544
        symbol: "sparkles"
        title: "No agent activity"
        sentence: "Sessions from the last 6 hours appear here."
    }
}
