import QtQuick
import Ambrel.Kit
import Ambrel.Stores

// The newest items of a folder: a click opens one, a drag takes it along, and the button shows it in its folder.
RowsView {
    id: root

    required property StoresArea area
    required property FolderModel folder

    // One was opened, or shown.
    signal opened

    model: folder.rows

    delegate: RowSlot {
        id: item

        required property folderRow row

        ListRow {
            width: parent.width
            focus: true
            symbol: item.row.symbol
            symbolTone: item.row.isLoading ? Theme.blue : null
            title: item.row.name
            detail: item.row.detail
            isStrong: false
            label: (item.row.isLoading ? qsTr("%1 is loading").arg(item.row.name) : qsTr("Open %1").arg(item.row.name)) + ", " + item.row.detail
            onClicked: {
                root.folder.open(item.row.rowId);
                root.opened();
            }

            IconButton {
                anchors.verticalCenter: parent.verticalCenter
                symbol: "folder"
                label: qsTr("Show %1 in its folder").arg(item.row.name)
                onClicked: {
                    root.folder.showInFolder(item.row.rowId);
                    root.opened();
                }
            }
        }
        DragHandler {
            target: null
            grabPermissions: PointerHandler.CanTakeOverFromAnything
            onActiveChanged: if (active)
                root.area.dragOut(root.folder, item.row.rowId, item)
        }
    }
}
