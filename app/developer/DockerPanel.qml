import QtQuick
import Ambrel.Base
import Ambrel.Developer
import Ambrel.Kit

// All containers; a click shows what one has written last.
DeveloperPanel {
    id: root

    required property DeveloperArea area
    required property DeveloperList containers
    required property Presentation presentation

    entries: containers
    title: hasLog ? containers.logTitle : qsTr("Docker")
    symbol: "shippingbox"
    implicitWidth: Scaled.px(460)
    implicitHeight: Scaled.px(420)
    hasPages: true
    emptyTitle: qsTr("No containers")
    emptySentence: qsTr("Containers appear here once they are created.")
    onChosen: id => containers.showLog(id)
    onPageAsked: address => {
        area.open(address);
        presentation.dismiss();
    }

    headerItems: [
        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.hasLog
            symbol: "arrow.clockwise"
            label: qsTr("Refresh")
            onClicked: root.containers.readLogAgain()
        },
        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.hasLog
            symbol: "chevron.left"
            label: qsTr("Back to the list")
            onClicked: root.containers.closeLog()
        }
    ]
}
