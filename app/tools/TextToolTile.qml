import QtQuick
import Ambrel.Kit
import Ambrel.Tools

// What a text tool makes of the text on the clipboard. Another text can be dropped on it.
TileFrame {
    id: root

    required property ToolsArea area
    readonly property TextToolModel tool: area.tool(widget)
    // A click does the work; for the other tools it opens the panel.
    property bool worksAtOnce: false

    panel: worksAtOnce ? "" : settingsPanel
    settingsPanel: Qt.resolvedUrl("TextToolPanel.qml")
    panelProperties: ({
            tool: tool
        })
    menuText: worksAtOnce ? qsTr("Options…") : ""
    menuSymbol: "slider.horizontal.3"
    onMenuChosen: settingsAsked()
    onActivated: if (!tool.act())
        settingsAsked()
    value: tool.face.value
    valueColor: tool.face.fault === "" ? Theme.ink : Theme.ink2
    subLine: tool.face.isWorking ? qsTr("Working…") : tool.face.detail

    Rectangle {
        visible: root.tool.face.hasSwatch && !root.isSmall
        x: parent.width - width
        width: Theme.caption.line
        height: width
        radius: Theme.radiusSmall
        color: root.tool.face.swatch
        border.width: 1
        border.color: Theme.over(Theme.lineStrong, Theme.tile)
    }
    DropArea {
        parent: root
        anchors.fill: parent
        enabled: root.tool.takesInput
        onDropped: drop => {
            root.tool.take(drop.text, drop.urls);
            drop.accept(Qt.CopyAction);
            if (!root.tool.isOpen)
                root.settingsAsked();
        }
    }
}
