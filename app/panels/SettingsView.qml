import QtQuick
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Panels

// The settings: tabs over a page of cards.
Popover {
    id: root

    required property AppSettings settings
    // The name of the tab that is shown; `tabChosen` asks for another.
    property string tab: "general"
    property string version
    // Tab name to what its page takes besides the settings.
    property var pages: ({})

    // Each has its page, as in SettingsBuddy.qml.
    readonly property var tabs: [
        {
            name: "general",
            title: qsTr("General"),
            symbol: "slider.horizontal.3"
        },
        {
            name: "appearance",
            title: qsTr("Appearance"),
            symbol: "paintpalette"
        },
        {
            name: "tiles",
            title: qsTr("Tiles"),
            symbol: "square.grid.2x2"
        },
        {
            name: "calendars",
            title: qsTr("Calendars"),
            symbol: "calendar"
        },
        {
            name: "buddy",
            title: qsTr("Buddy"),
            symbol: "pawprint"
        },
        {
            name: "agents",
            title: qsTr("Agents"),
            symbol: "sparkles"
        },
        {
            name: "clipboard",
            title: qsTr("Clipboard"),
            symbol: "doc.on.clipboard"
        },
        {
            name: "about",
            title: qsTr("About"),
            symbol: "info.circle"
        }
    ]
    readonly property int index: Math.max(0, tabs.findIndex(entry => entry.name === root.tab))

    signal tabChosen(string tab)
    signal customizeAsked

    implicitWidth: 760
    implicitHeight: 480
    title: qsTr("Settings")
    symbol: "gearshape.fill"
    hasFullRule: true
    headerHeight: 44

    Row {
        id: bar
        anchors.horizontalCenter: parent.horizontalCenter
        y: Theme.space2
        spacing: Theme.space1

        Repeater {
            model: root.tabs

            SettingsTab {
                required property var modelData
                required property int index
                text: modelData.title
                symbol: modelData.symbol
                isChosen: index === root.index
                onClicked: root.tabChosen(modelData.name)
                Keys.onLeftPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
                Keys.onRightPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            }
        }
    }
    Rectangle {
        id: rule
        y: bar.y + bar.height + Theme.space2
        width: parent.width
        height: 1
        color: Theme.over(Theme.line, Theme.panel)
    }
    ScrollView {
        id: scroll
        anchors {
            left: parent.left
            right: parent.right
            top: rule.bottom
            bottom: parent.bottom
        }
        padding: Theme.space4 + 4

        Loader {
            id: page
            width: parent.width
            onLoaded: scroll.contentY = 0
            Component.onCompleted: root.showPage()
        }
    }
    onIndexChanged: showPage()

    function showPage() {
        const name = tabs[index].name;
        const properties = Object.assign({
            settings: root.settings
        }, root.pages[name]);
        if (name === "about")
            properties.version = root.version;
        page.setSource("Settings" + name[0].toUpperCase() + name.slice(1) + ".qml", properties);
    }
    Connections {
        target: page.item
        ignoreUnknownSignals: true

        function onCustomizeAsked() {
            root.customizeAsked();
        }
    }
}
