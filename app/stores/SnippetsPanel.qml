import QtQuick
import Ambrel.Base
import Ambrel.Stores

// The texts; a click copies one.
ListPanel {
    id: root

    required property EditedList snippets
    required property Presentation presentation

    entries: snippets
    title: qsTr("Snippets")
    symbol: "text.quote"
    isTextLong: true
    hint: qsTr("Add a text")
    titleHint: qsTr("Name")
    textHint: qsTr("Text")
    emptyTitle: qsTr("No texts yet")
    emptySentence: qsTr("Type or paste one above and press Return. A click copies it; edit it to give it a name or more lines.")
    onChosen: id => {
        root.copyAsked(snippets.textOf(id));
        root.presentation.dismiss();
    }
}
