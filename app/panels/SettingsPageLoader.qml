import QtQuick
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Panels

// A page of the settings by its name, "buddy" for SettingsBuddy.qml, or what a search finds of it.
Column {
    id: root

    property string name
    property string title
    required property AppSettings settings
    property PanelsArea area: null
    // Page name to what it takes besides these two.
    property var pages: ({})
    property string query
    property bool isFound: true

    signal loaded
    signal customizeAsked
    signal purchaseAsked
    signal copyAsked(string text)

    function narrow() {
        isFound = search.narrow(page.item, query);
    }
    function show() {
        const properties = Object.assign({
            settings: root.settings,
            area: root.area
        }, root.pages[name]);
        const file = name.charAt(0).toUpperCase() + name.slice(1);
        page.setSource("Settings" + file + ".qml", properties);
    }

    spacing: Theme.space2
    visible: isFound
    onNameChanged: if (page.isReady)
        show()
    onQueryChanged: narrow()

    SettingsSearch {
        id: search
    }
    Label {
        visible: root.query !== ""
        text: root.title
        role: Theme.rowTitle
        color: Theme.ink2
        leftPadding: Theme.space1
        Accessible.role: Accessible.Heading
    }
    Loader {
        id: page

        property bool isReady: false

        width: parent.width
        onLoaded: {
            root.narrow();
            root.loaded();
        }
        Component.onCompleted: {
            isReady = true;
            root.show();
        }
    }
    Connections {
        target: page.item
        ignoreUnknownSignals: true

        function onCustomizeAsked() {
            root.customizeAsked();
        }
        function onPurchaseAsked() {
            root.purchaseAsked();
        }
        function onCopyAsked(text: string) {
            root.copyAsked(text);
        }
    }
}
