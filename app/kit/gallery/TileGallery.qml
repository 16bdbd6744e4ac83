import QtQuick
import Ambrel.Kit

// Every kind of tile and every state of one.
Rectangle {
    id: root

    readonly property list<real> load: [30, 20, 34, 48, 30, 50, 100, 68, 52, 32, 46, 20]

    width: 840
    height: 330
    color: Theme.panel

    Column {
        x: 32
        y: 24
        spacing: 12

        Label {
            text: "Kinds"
            role: Theme.rowTitle
        }
        Row {
            spacing: 16

            TileFrame {
                objectName: "value"
                symbol: "clock"
                name: "Clock"
                value: "10:42"
                valueRole: Theme.clock
                widestValue: "00:00"
                subLine: "Sat 21 Nov"
            }
            TileFrame {
                objectName: "sparkline"
                symbol: "cpu"
                name: "CPU"
                value: "23"
                unit: "%"
                subLine: "52 °C"
                reserved: 44

                Sparkline {
                    values: root.load
                    anchors.right: parent.right
                    anchors.bottom: parent.bottom
                }
            }
            TileFrame {
                objectName: "ring"
                span: TileFrame.Small
                name: "Disk, 71 percent used"

                Ring {
                    value: 71
                    figure: "71"
                    anchors.horizontalCenter: parent.horizontalCenter
                }
                Label {
                    y: parent.height - height
                    width: parent.width
                    text: "Disk"
                    role: Theme.caption
                    color: Theme.ink2
                    horizontalAlignment: Text.AlignHCenter
                }
            }
            TileFrame {
                objectName: "meters"
                span: TileFrame.ExtraLarge
                symbol: "sparkle"
                name: "Claude Usage"
                fact: "Resets 14:00"

                Meter {
                    y: Theme.caption.line + 1
                    width: parent.width
                    label: "Session"
                    value: 62
                    figure: "62 %"
                }
                Meter {
                    y: Theme.caption.line + 1 + height
                    width: parent.width
                    label: "Week"
                    value: 31
                    figure: "31 %"
                }
            }
            TileFrame {
                objectName: "text"
                span: TileFrame.Large
                symbol: "doc.on.clipboard"
                name: "Clipboard"
                fact: "1 min"

                Label {
                    y: Theme.caption.line + 1
                    width: parent.width
                    text: "Meeting moved to Thursday, room 4"
                    role: Theme.listName
                    wrapMode: Text.WordWrap
                    maximumLineCount: 2
                }
            }
        }
        Row {
            spacing: 16

            TileFrame {
                objectName: "counts"
                span: TileFrame.Large
                symbol: "sparkles"
                name: "AI Agents"

                Row {
                    y: Theme.caption.line
                    width: parent.width
                    spacing: 20

                    Repeater {
                        model: [["2", "need you", Theme.orange], ["3", "working", Theme.blue], ["1", "done", Theme.green]]

                        Column {
                            id: count
                            required property var modelData

                            Label {
                                text: count.modelData[0]
                                role: Theme.value
                                color: count.modelData[2].text
                            }
                            Label {
                                text: count.modelData[1]
                                role: Theme.subLine
                                color: Theme.ink2
                            }
                        }
                    }
                }
            }
            TileFrame {
                objectName: "picture"
                symbol: "mappin"
                name: "Weather"
                value: "21°"
                valueRole: Theme.clock
                subLine: "Partly cloudy"

                WeatherPicture {
                    name: "cloud.sun.fill"
                    anchors.right: parent.right
                    y: 12
                }
            }
            TileFrame {
                objectName: "ringAndValue"
                symbol: "timer"
                name: "Focus Timer"

                Ring {
                    y: Theme.caption.line
                    width: 32
                    height: 32
                    value: 72
                    symbol: "pause.fill"
                    tone: Theme.orange
                }
                TickingText {
                    x: 40
                    y: Theme.caption.line
                    text: "18:24"
                    font: Theme.timer.font
                    color: Theme.ink
                    height: Theme.timer.line
                }
                Label {
                    x: 40
                    y: Theme.caption.line + Theme.value.line
                    text: "of 25 min"
                    role: Theme.subLine
                    color: Theme.ink2
                }
            }
            TileFrame {
                objectName: "small"
                span: TileFrame.Small
                symbol: "clock"
                name: "Clock"
                value: "10:42"
            }
            TileFrame {
                objectName: "elided"
                symbol: "building.2"
                name: "A rather long name"
                fact: "12 min"
                value: "Overlong value"
                unit: "MB/s"
                subLine: "and a sub-line that does not fit"
            }
        }
        Label {
            text: "States"
            role: Theme.rowTitle
        }
        Row {
            spacing: 16

            Repeater {
                model: ["normal", "focus", "unavailable", "stale"]

                TileFrame {
                    id: tile
                    required property string modelData
                    objectName: modelData
                    symbol: "cpu"
                    name: "CPU"
                    value: "23"
                    unit: "%"
                    subLine: "52 °C"
                    reserved: 44
                    problem: modelData === "unavailable" ? "No sensor found" : ""
                    staleSince: modelData === "stale" ? "12 min ago" : ""
                    focus: modelData === "focus"

                    Sparkline {
                        values: root.load
                        opacity: tile.markOpacity
                        height: tile.isStale ? 18 : 32
                        anchors.right: parent.right
                        anchors.bottom: parent.bottom
                        anchors.bottomMargin: tile.isStale ? 14 : 0
                    }
                }
            }
            TileFrame {
                objectName: "smallUnavailable"
                span: TileFrame.Small
                symbol: "battery.75percent"
                name: "Battery"
                problem: "No battery found"
            }
        }
    }
}
