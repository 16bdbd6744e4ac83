import QtQuick
import Ambrel.Base
import Ambrel.Stores

// The sites; a click opens one.
ListPanel {
    id: root

    required property BookmarkList bookmarks
    required property Presentation presentation

    entries: bookmarks
    title: qsTr("Bookmarks")
    symbol: "bookmark"
    entrySymbol: "globe"
    hint: qsTr("Add an address")
    refusal: qsTr("This is not the address of a web page")
    titleHint: qsTr("Name")
    textHint: qsTr("Address")
    emptyTitle: qsTr("No bookmarks yet")
    emptySentence: qsTr("Type an address above and press Return, such as debian.org.")
    onChosen: id => {
        bookmarks.visit(id);
        presentation.dismiss();
    }
    onAboutToOpen: bookmarks.lookForIcons()
}
