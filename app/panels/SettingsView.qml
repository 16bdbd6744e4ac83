import QtQuick
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Panels

// The settings: tabs over a page of cards. A search shows what it finds of all pages.
Popover {
    id: root

    required property AppSettings settings
    // The name of the tab that is shown; `tabChosen` asks for another.
    property string tab: "general"
    property PanelsArea area: null
    // Tab name to what its page takes besides the settings and the area.
    property var pages: ({})
    readonly property bool isSearching: search.text.trim() !== ""

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
            name: "disk",
            title: qsTr("Disk"),
            symbol: "internaldrive"
        },
        {
            name: "privacy",
            title: qsTr("Privacy"),
            symbol: "lock.fill"
        },
        {
            name: "licence",
            title: qsTr("Licence"),
            symbol: "key"
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
    signal purchaseAsked
    signal copyAsked(string text)

    implicitWidth: Scaled.px(780)
    implicitHeight: Scaled.px(560)
    title: qsTr("Settings")
    symbol: "gearshape.fill"
    hasFullRule: true
    headerHeight: 44
    onAboutToOpen: {
        search.text = "";
        search.forceActiveFocus();
    }
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_F && event.modifiers === Qt.ControlModifier;
        if (event.accepted)
            search.input.forceActiveFocus(Qt.ShortcutFocusReason);
    }

    headerItems: Field {
        id: search
        width: Scaled.px(220)
        anchors.verticalCenter: parent ? parent.verticalCenter : undefined
        isSearch: true
        focus: true
        hint: qsTr("Search all settings")
    }

    Flow {
        id: bar
        anchors.horizontalCenter: parent.horizontalCenter
        y: Theme.space2
        width: Math.min(oneLine, parent.width - 2 * Theme.space2)
        spacing: 2

        readonly property real oneLine: {
            let sum = -spacing;
            for (let i = 0; i < children.length; ++i)
                sum += children[i].implicitWidth > 0 ? children[i].implicitWidth + spacing : 0;
            return Math.ceil(sum);
        }

        Repeater {
            model: root.tabs

            SettingsTab {
                required property var modelData
                required property int index
                text: modelData.title
                symbol: modelData.symbol
                isChosen: index === root.index && !root.isSearching
                onClicked: {
                    search.text = "";
                    root.tabChosen(modelData.name);
                }
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

        Column {
            width: parent.width

            // Its rows keep what is being typed into them while a search comes and goes.
            SettingsPageLoader {
                id: page
                width: parent.width
                visible: !root.isSearching
                name: root.tabs[root.index].name
                settings: root.settings
                area: root.area
                pages: root.pages
                onLoaded: scroll.contentY = 0
                onCustomizeAsked: root.customizeAsked()
                onPurchaseAsked: root.purchaseAsked()
                onCopyAsked: text => root.copyAsked(text)
            }
            Column {
                id: results
                width: parent.width
                visible: root.isSearching
                spacing: Theme.space4

                Repeater {
                    model: root.isSearching ? root.tabs : []

                    SettingsPageLoader {
                        required property var modelData

                        width: results.width
                        name: modelData.name
                        title: modelData.title
                        settings: root.settings
                        area: root.area
                        pages: root.pages
                        query: search.text
                        onCustomizeAsked: root.customizeAsked()
                        onPurchaseAsked: root.purchaseAsked()
                        onCopyAsked: text => root.copyAsked(text)
                    }
                }
            }
        }
    }
    EmptyState {
        anchors.centerIn: scroll
        visible: root.isSearching && results.height < 1
        symbol: "magnifyingglass"
        title: qsTr("No setting is called that")
        sentence: qsTr("Try another word. All pages are searched.")
    }
}
