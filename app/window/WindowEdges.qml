import QtQuick
import Ambrel.Window

// Where the pointer takes hold of a window's edges and corners. It surrounds the frame and reaches a little into it.
Item {
    id: root

    readonly property int grip: 8

    signal resizeAsked(int edges)

    Repeater {
        model: [
            {
                edges: Qt.LeftEdge,
                cursor: Qt.SizeHorCursor
            },
            {
                edges: Qt.RightEdge,
                cursor: Qt.SizeHorCursor
            },
            {
                edges: Qt.TopEdge,
                cursor: Qt.SizeVerCursor
            },
            {
                edges: Qt.BottomEdge,
                cursor: Qt.SizeVerCursor
            },
            {
                edges: Qt.LeftEdge | Qt.TopEdge,
                cursor: Qt.SizeFDiagCursor
            },
            {
                edges: Qt.RightEdge | Qt.BottomEdge,
                cursor: Qt.SizeFDiagCursor
            },
            {
                edges: Qt.RightEdge | Qt.TopEdge,
                cursor: Qt.SizeBDiagCursor
            },
            {
                edges: Qt.LeftEdge | Qt.BottomEdge,
                cursor: Qt.SizeBDiagCursor
            }
        ]

        MouseArea {
            required property var modelData
            readonly property int edges: modelData.edges
            readonly property bool isLeft: edges & Qt.LeftEdge
            readonly property bool isRight: edges & Qt.RightEdge
            readonly property bool isTop: edges & Qt.TopEdge
            readonly property bool isBottom: edges & Qt.BottomEdge

            x: isRight ? root.width - root.grip : 0
            y: isBottom ? root.height - root.grip : 0
            width: isLeft || isRight ? root.grip : root.width
            height: isTop || isBottom ? root.grip : root.height
            cursorShape: modelData.cursor
            onPressed: root.resizeAsked(edges)
        }
    }
}
