import QtQuick
import Ambrel.Window

// Where the pointer takes hold of a window's edges and corners. It surrounds the frame and reaches a little into it.
Item {
    id: root

    readonly property int grip: 8
    // Without a compositor the window ends at the arc of its corner.
    readonly property int cornerGrip: 20

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
            readonly property int depth: (isLeft || isRight) && (isTop || isBottom) ? root.cornerGrip : root.grip

            x: isRight ? root.width - depth : 0
            y: isBottom ? root.height - depth : 0
            width: isLeft || isRight ? depth : root.width
            height: isTop || isBottom ? depth : root.height
            cursorShape: modelData.cursor
            onPressed: root.resizeAsked(edges)
        }
    }
}
