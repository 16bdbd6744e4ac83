import QtQuick
import Ambrel.Kit

// One widget of the gallery: its tile as it is on the bar, or a card in its place, and the mark that says whether
// it is on the bar. A click toggles it.
Pressable {
    id: root

    required property string widget
    required property string title
    required property string description
    required property string symbol
    required property int span
    required property bool isOnBar
    required property bool isAllowed
    property Component preview: null

    label: title
    tip: isAllowed ? description : description + "\n" + qsTr("Needs Tilebay Pro.")
    accessibleRole: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: isOnBar
    width: [Theme.tileSmall, Theme.tileMedium, Theme.tileLarge, Theme.tileExtraLarge][span]
    height: Theme.tileHeight

    Item {
        id: holder
        anchors.fill: parent
        enabled: false
        Accessible.ignored: true
    }
    Component {
        id: card

        GalleryCard {
            title: root.title
            description: root.description
            symbol: root.symbol
        }
    }
    Component.onCompleted: {
        const tile = (preview ?? card).createObject(holder, {
            widget: root.widget,
            span: root.span
        });
        tile.width = Qt.binding(() => root.width);
    }

    Rectangle {
        x: parent.width - 14
        y: -6
        width: 22
        height: 22
        radius: 11
        color: Theme.panel

        Rectangle {
            anchors.fill: parent
            anchors.margins: 1
            radius: width / 2
            color: root.isOnBar ? (root.hovered ? Theme.accentHover : Theme.accent) : root.hovered ? Theme.cardHover : Theme.greySoft

            Symbol {
                anchors.centerIn: parent
                name: root.isOnBar ? "checkmark" : root.isAllowed ? "plus" : "lock.fill"
                size: root.isAllowed ? 15 : 12
                color: root.isOnBar ? Theme.onAccent : Theme.ink
            }
        }
    }
    FocusRing {
        targetRadius: Theme.radiusTile
    }
}
