import QtQuick
import Ambrel.Clipboard
import Ambrel.Kit

// Code with syntax colours; long lines are cut off.
Item {
    id: root

    required property clipFace face
    // The colours for the names in the markup.
    readonly property var colors: ({
            keyword: Theme.violet.text,
            assigned: Theme.blue.text,
            quoted: Theme.green.text,
            comment: Theme.ink2
        })

    Rectangle {
        anchors {
            fill: parent
            leftMargin: Theme.space2
            rightMargin: Theme.space2
        }
        radius: Theme.radiusSmall
        color: Theme.field
        clip: true

        Text {
            id: label

            x: Theme.space2
            y: Theme.space2
            width: parent.width - Theme.space2 - 2
            text: root.face.code.replace(/"(keyword|assigned|quoted|comment)"/g, (match, word) => `"${root.colors[word]}"`)
            font: Theme.code.font
            lineHeight: Theme.code.line
            lineHeightMode: Text.FixedHeight
            color: Theme.ink
            textFormat: Text.StyledText
            wrapMode: Text.NoWrap
            maximumLineCount: Math.max(1, Math.floor((parent.height - Theme.space2) / lineHeight))
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
}
