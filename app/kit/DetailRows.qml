import QtQuick
import Ambrel.Kit

// Names and values below one another. The rows of the model have a `title` and a `figure`.
Column {
    property alias model: rows.model

    spacing: Theme.space1

    Repeater {
        id: rows

        DetailRow {}
    }
}
