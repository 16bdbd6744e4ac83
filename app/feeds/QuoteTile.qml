import QtQuick
import Ambrel.Feeds

// The quote of the day; a click copies it.
TextTile {
    id: root

    required property QuoteModel quote

    text: quote.text
    value: isSmall ? qsTr("Today") : ""
    onActivated: quote.copy()
}
