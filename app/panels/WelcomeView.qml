import QtQuick
import Ambrel.Context
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Panels

// What a new user sees first, in five pages: what the bar is, what was found on this computer, tiles to begin with, what
// is read and what stays here, and the keys.
Popover {
    id: root

    property PanelsArea area: null
    property GalleryModel gallery: null
    property WidgetContext context: null
    property int page: 0
    readonly property var pages: [hello, tools, tiles, privacy, keys]
    readonly property bool isLast: page === pages.length - 1

    signal customizeAsked
    // The user has finished it.
    signal finished

    onCloseRequested: finished()
    onCustomizeAsked: finished()
    onAboutToOpen: page = 0

    implicitWidth: Scaled.px(480)
    implicitHeight: Scaled.px(500)
    hasHeader: false
    title: qsTr("Welcome to Tilebay")
    Accessible.name: title
    Keys.onPressed: event => {
        const step = event.key === Qt.Key_PageDown ? 1 : event.key === Qt.Key_PageUp ? -1 : 0;
        root.page = Math.max(0, Math.min(root.pages.length - 1, root.page + step));
        event.accepted = step !== 0;
    }

    component Words: Column {
        property alias headline: headline.text
        property alias sentence: sentence.text

        spacing: Theme.space2

        Label {
            id: headline
            width: parent.width
            role: Theme.headline
            wrapMode: Text.WordWrap
            Accessible.role: Accessible.Heading
        }
        Label {
            id: sentence
            width: parent.width
            color: Theme.ink2
            wrapMode: Text.WordWrap
        }
        Item {
            width: 1
            height: Theme.space1
        }
    }

    ScrollView {
        id: scroll
        anchors {
            left: parent.left
            right: parent.right
            top: parent.top
            bottom: foot.top
        }
        padding: Theme.space6 + 4

        Loader {
            width: parent.width
            sourceComponent: root.pages[root.page]
            onLoaded: scroll.contentY = 0
        }
    }
    Component {
        id: hello

        Words {
            headline: root.title
            sentence: qsTr("A bar of live widgets on the edge of your screen: time, weather, your machine, and what your AI agents are doing.")

            WelcomeStep {
                width: parent.width
                symbol: "cursorarrow"
                title: qsTr("Push the pointer against the edge")
                detail: qsTr("The bar comes out, and goes when you leave it. It can also stay: see Settings.")
            }
            WelcomeStep {
                width: parent.width
                symbol: "square.grid.2x2"
                title: qsTr("Choose your tiles")
                detail: qsTr("Over a hundred widgets, in profiles for the laptop alone and for the desk.")
            }
            WelcomeStep {
                width: parent.width
                symbol: "hand.raised.fill"
                title: qsTr("Let it call you")
                detail: qsTr("When an agent needs you, the bar peeks out and says so.")
            }
        }
    }
    Component {
        id: tools

        Words {
            headline: qsTr("Found on this computer")
            sentence: qsTr("Tilebay finds these by itself. There is nothing to set up.")
            Component.onCompleted: if (root.area)
                root.area.welcome.look()

            Repeater {
                model: root.area ? root.area.welcome.tools : null

                WelcomeStep {
                    required property foundTool row

                    width: parent.width
                    symbol: row.isFound ? "checkmark" : row.symbol
                    symbolColor: row.isFound ? Theme.green.text : Theme.ink3
                    title: row.name
                    detail: row.detail
                }
            }
        }
    }
    Component {
        id: tiles

        Words {
            headline: qsTr("Tiles to begin with")
            sentence: qsTr("Click those that you want on the bar. There are many more under Customize Dock.")

            Flow {
                width: parent.width
                spacing: Theme.space3

                Repeater {
                    model: root.area && root.context ? root.area.welcome.tiles : null

                    WelcomeTile {
                        context: root.context
                        onClicked: root.gallery.toggle(row.widget)
                    }
                }
            }
        }
    }
    Component {
        id: privacy

        Words {
            headline: qsTr("What it reads, and what stays here")
            sentence: qsTr("Tilebay has no account and no server of its own.")

            WelcomeStep {
                width: parent.width
                symbol: "eye"
                title: qsTr("What it reads")
                detail: qsTr("The logs of your AI agents, your calendars, what you copy, and how busy the computer is. Other programs' files are only read.")
            }
            WelcomeStep {
                width: parent.width
                symbol: "lock.fill"
                title: qsTr("What never leaves this computer")
                detail: qsTr("Your copies, notes, lists, and all that agents and you have written. Passwords that say what they are do not even come into the history.")
            }
            WelcomeStep {
                width: parent.width
                symbol: "network"
                title: qsTr("What is asked of others")
                detail: qsTr("The weather of your place, and what a tile that you add says it asks for. Settings, Privacy shows all of it, and deletes it.")
            }
        }
    }
    Component {
        id: keys

        Words {
            headline: qsTr("Two keys to remember")
            sentence: root.area ? root.area.keys.welcomeAdvice : ""

            Section {
                Repeater {
                    model: ["barKeys", "shelfKeys"]

                    SectionRow {
                        id: line
                        required property string modelData

                        title: setting.description

                        SettingValue {
                            id: setting
                            key: line.modelData
                        }
                        KeyCap {
                            text: setting.value ?? ""
                        }
                    }
                }
            }
            Item {
                width: 1
                height: Theme.space2
            }
            WelcomeStep {
                width: parent.width
                symbol: "gearshape.fill"
                title: qsTr("This guide comes back")
                detail: qsTr("It is in Settings, About, and in the menu of Tilebay's symbol in the tray: Welcome Guide.")
            }
        }
    }
    Item {
        id: foot
        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
            margins: Theme.space6
            leftMargin: scroll.padding
            rightMargin: scroll.padding
        }
        height: buttons.height

        Row {
            spacing: 6
            anchors.verticalCenter: parent.verticalCenter
            Accessible.role: Accessible.StaticText
            Accessible.name: qsTr("Page %1 of %2").arg(root.page + 1).arg(root.pages.length)

            Repeater {
                model: root.pages.length

                Rectangle {
                    required property int index

                    width: 6
                    height: 6
                    radius: 3
                    color: index === root.page ? Theme.accent : Theme.over(Theme.lineStrong, Theme.panel)
                }
            }
        }
        Row {
            id: buttons
            anchors.right: parent.right
            spacing: Theme.space2

            Button {
                size: 36
                kind: Button.Quiet
                text: root.page === 0 ? qsTr("Choose tiles…") : qsTr("Back")
                onClicked: root.page === 0 ? root.customizeAsked() : --root.page
            }
            Button {
                size: 36
                focus: true
                kind: Button.Primary
                text: root.isLast ? qsTr("Start") : qsTr("Continue")
                onClicked: root.isLast ? root.closeRequested() : ++root.page
            }
        }
    }
}
