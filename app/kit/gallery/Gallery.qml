import QtQuick
import Ambrel.Kit

// Every component of the kit in every state.
Rectangle {
    id: root

    component Group: Column {
        property alias title: head.text
        property alias spread: items.spacing
        default property alias members: items.data
        spacing: 8

        Label {
            id: head
            role: Theme.smallMedium
            color: Theme.ink2
        }
        Row {
            id: items
            spacing: 12
        }
    }

    width: 600
    height: 1340
    color: Theme.panel

    Column {
        x: 28
        y: 20
        spacing: 18

        Repeater {
            model: [["Primary button", Button.Primary], ["Secondary button", Button.Secondary], ["Quiet button", Button.Quiet]]

            Group {
                id: group
                required property var modelData
                title: modelData[0]

                Repeater {
                    model: ["Normal", "Hover", "Pressed", "Focus", "Off"]

                    Button {
                        required property string modelData
                        objectName: group.modelData[0] + " " + modelData
                        kind: group.modelData[1]
                        text: modelData
                        looksHovered: modelData === "Hover"
                        looksDown: modelData === "Pressed"
                        enabled: modelData !== "Off"

                        FocusRing {
                            shown: parent.modelData === "Focus"
                        }
                    }
                }
            }
        }
        Row {
            spacing: 40

            Group {
                title: "Sizes and symbols"

                Button {
                    objectName: "small button"
                    size: 28
                    text: "Open"
                    symbol: "folder.fill"
                }
                Button {
                    size: 36
                    kind: Button.Primary
                    text: "Move 12.4 GB to the Trash"
                    symbol: "trash.fill"
                }
                IconButton {
                    objectName: "icon button"
                    symbol: "gearshape.fill"
                    label: "Settings"
                }
                IconButton {
                    symbol: "xmark"
                    label: "Close"
                    looksHovered: true
                }
                IconButton {
                    symbol: "mappin.circle"
                    label: "Place a pin"
                    size: 32
                    isOn: true
                }
                LinkButton {
                    text: "Change"
                    anchors.verticalCenter: parent.verticalCenter
                }
            }
        }
        Row {
            spacing: 36

            Group {
                title: "Chip"

                Chip {
                    objectName: "chosen chip"
                    text: "Chosen"
                    isChosen: true
                }
                Chip {
                    objectName: "chip"
                    text: "Normal"
                }
                Chip {
                    text: "Hover"
                    looksHovered: true
                }
            }
            Group {
                title: "Check box"

                CheckBox {
                    objectName: "check box"
                    label: "Chosen"
                    checkState: Qt.Checked
                }
                CheckBox {
                    label: "Partly"
                    checkState: Qt.PartiallyChecked
                }
                CheckBox {
                    label: "Not chosen"
                }
            }
            Group {
                title: "Switch"

                Switch {
                    objectName: "switch on"
                    label: "On"
                    checked: true
                }
                Switch {
                    objectName: "switch off"
                    label: "Off"
                }
            }
        }
        Row {
            spacing: 36

            Group {
                title: "Status pill"

                Pill {
                    objectName: "pill"
                    text: "Needs you"
                    tone: Theme.orange
                }
                Pill {
                    text: "Working"
                    tone: Theme.blue
                }
                Pill {
                    text: "Done"
                    tone: Theme.green
                }
                Pill {
                    text: "Idle"
                }
            }
            Group {
                title: "Key"

                KeyCap {
                    objectName: "key"
                    text: "Enter"
                }
                KeyCap {
                    text: "Alt"
                }
            }
        }
        Row {
            spacing: 40

            Group {
                title: "Risk label"

                Pill {
                    text: "Safe"
                    symbol: "checkmark.circle.fill"
                    tone: Theme.green
                }
                Pill {
                    text: "Review"
                    symbol: "eye"
                    tone: Theme.orange
                }
                Pill {
                    text: "Careful"
                    symbol: "exclamationmark.triangle.fill"
                    tone: Theme.red
                }
            }
            Group {
                title: "Segments"

                Segments {
                    objectName: "segments"
                    options: ["One", "Two", "Three"]
                }
            }
        }
        Row {
            spacing: 40

            Group {
                title: "Field: empty and filled"

                Field {
                    objectName: "field"
                    hint: "Search"
                    isSearch: true
                }
                Field {
                    objectName: "filled field"
                    hint: "Search"
                    isSearch: true
                    text: "receipt"
                    focus: true
                }
            }
        }
        Row {
            spacing: 40

            Group {
                title: "Ring by level"

                Repeater {
                    model: [42, 81, 94]

                    Ring {
                        required property int modelData
                        objectName: "ring " + modelData
                        value: modelData
                        figure: modelData
                        tone: Theme.gaugeTone(modelData, Theme.teal)
                    }
                }
            }
            Group {
                title: "Meter by level"

                Column {
                    Repeater {
                        model: [42, 81, 94]

                        Meter {
                            required property int modelData
                            objectName: "meter " + modelData
                            width: 180
                            value: modelData
                            figure: modelData + " %"
                            tone: Theme.gaugeTone(modelData, Theme.teal)
                        }
                    }
                }
            }
        }
        Row {
            spacing: 40

            Group {
                title: "Slider"

                Slider {
                    objectName: "slider"
                    value: 72
                }
            }
            Group {
                title: "Weather"
                spread: 6

                Repeater {
                    model: ["sun.max.fill", "cloud.sun.fill", "cloud.fill", "cloud.fog.fill", "cloud.drizzle.fill", "cloud.rain.fill", "cloud.snow.fill", "cloud.bolt.rain.fill"]

                    WeatherPicture {
                        required property string modelData
                        objectName: modelData
                        name: modelData
                    }
                }
            }
        }
        PanelGallery {}
    }
}
