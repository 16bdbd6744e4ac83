import QtQuick
import Ambrel.Kit
import Ambrel.Time

// A field that finds cities, and in place of the children what it has found.
FocusScope {
    id: root

    required property CityList cities
    default property alias rest: below.data

    function start() {
        field.text = "";
        field.forceActiveFocus();
    }

    Field {
        id: field

        x: Theme.space4
        y: Theme.space3
        width: parent.width - 2 * Theme.space4
        isSearch: true
        hint: root.cities.isFull ? qsTr("The list is full") : qsTr("Add a city")
        enabled: !root.cities.isFull
        maximumLength: 60
        focus: true
        onTextChanged: root.cities.search(text)
        onAccepted: {
            root.cities.addFirst();
            text = "";
        }
    }
    Column {
        visible: field.text.trim() !== ""
        x: Theme.space2
        width: parent.width - 2 * Theme.space2
        anchors.top: field.bottom
        anchors.topMargin: Theme.space2

        Repeater {
            model: root.cities.results

            ListRow {
                required property foundCityRow row

                width: parent.width
                symbol: row.isChosen ? "checkmark" : "plus"
                title: row.name
                detail: row.detail
                enabled: !row.isChosen
                onClicked: {
                    root.cities.add(row.rowId);
                    root.start();
                }
            }
        }
        Label {
            visible: text !== ""
            x: Theme.space2
            width: parent.width - 2 * Theme.space2
            text: root.cities.note
            role: Theme.small
            color: Theme.ink2
            wrapMode: Text.WordWrap
        }
    }
    Item {
        id: below

        visible: field.text.trim() === ""
        anchors {
            left: parent.left
            right: parent.right
            top: field.bottom
            bottom: parent.bottom
            topMargin: Theme.space2
        }
    }
}
