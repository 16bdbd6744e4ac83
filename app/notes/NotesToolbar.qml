import QtQuick
import Ambrel.Kit
import Ambrel.Notes

// The tools, undo and redo, and the zoom.
Item {
    id: root

    required property ScreenNotesModel notes
    required property CaptureView view
    // "select", "pin", "highlight" or "crop"
    property string tool: "pin"
    readonly property bool hasPicture: notes.face.pageCount > 0
    readonly property var tools: [
        {
            name: "select",
            symbol: "cursorarrow",
            label: qsTr("Select"),
            key: "V"
        },
        {
            name: "pin",
            symbol: "mappin.circle",
            label: qsTr("Place a pin"),
            key: "P"
        },
        {
            name: "highlight",
            symbol: "rectangle.dashed",
            label: qsTr("Mark an area"),
            key: "H"
        },
        {
            name: "crop",
            symbol: "crop",
            label: qsTr("Crop to an area or a window"),
            key: "C"
        }
    ]

    implicitHeight: Scaled.px(48)

    Row {
        anchors.verticalCenter: parent.verticalCenter
        x: Theme.space3
        spacing: Theme.space1

        Repeater {
            model: root.tools

            IconButton {
                required property var modelData

                size: 32
                symbol: modelData.symbol
                label: modelData.label
                tipKeys: modelData.key
                enabled: root.hasPicture
                isOn: root.tool === modelData.name
                accessibleRole: Accessible.RadioButton
                Accessible.checkable: true
                Accessible.checked: isOn
                onClicked: root.tool = modelData.name
            }
        }
        Rectangle {
            width: 1
            height: 20
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.over(Theme.line, Theme.field)
        }
        IconButton {
            size: 32
            symbol: "arrow.uturn.backward"
            label: qsTr("Undo")
            tipKeys: qsTr("Ctrl Z")
            enabled: root.notes.face.canUndo
            onClicked: root.notes.undo()
        }
        IconButton {
            size: 32
            symbol: "arrow.uturn.forward"
            label: qsTr("Redo")
            tipKeys: qsTr("Ctrl Shift Z")
            enabled: root.notes.face.canRedo
            onClicked: root.notes.redo()
        }
    }
    Row {
        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: Theme.space3
        spacing: Theme.space1
        visible: root.hasPicture

        Label {
            anchors.verticalCenter: parent.verticalCenter
            // A window manager that tiles makes the window narrower than it asks.
            visible: root.width >= 520
            rightPadding: Theme.space3
            text: root.notes.face.sizeText
            color: Theme.ink2
        }
        IconButton {
            symbol: "minus.magnifyingglass"
            label: qsTr("Zoom out")
            tipKeys: qsTr("Ctrl −")
            onClicked: root.view.zoomBy(1 / 1.25, Qt.point(root.view.width / 2, root.view.height / 2))
        }
        Button {
            kind: Button.Quiet
            size: 28
            text: qsTr("%1 %").arg(root.view.percent)
            tip: qsTr("Show the whole capture")
            onClicked: root.view.fit()
        }
        IconButton {
            symbol: "plus.magnifyingglass"
            label: qsTr("Zoom in")
            tipKeys: qsTr("Ctrl +")
            onClicked: root.view.zoomBy(1.25, Qt.point(root.view.width / 2, root.view.height / 2))
        }
    }
}
