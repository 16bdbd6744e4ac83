import QtQuick
import Ambrel.Clipboard
import Ambrel.Dock

TileSet {
    id: root

    tiles: ({
            "clipboard": clipboardTile
        })

    readonly property Component clipboardTile: ClipboardTile {
        clipboard: root.context.clipboard
        hasPreview: root.context.settings.clipboardPreviewInBar
        isOn: root.context.settings.clipboardEnabled
    }
}
