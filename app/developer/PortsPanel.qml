import QtQuick
import Ambrel.Base
import Ambrel.Developer

// Local servers; a click opens one in the browser.
DeveloperPanel {
    id: root

    required property DeveloperArea area
    required property DeveloperList servers
    required property Presentation presentation

    entries: servers
    title: qsTr("Localhost Ports")
    symbol: "point.3.connected.trianglepath.dotted"
    emptyTitle: qsTr("No servers")
    emptySentence: qsTr("Programs that listen on a port of this computer appear here.")
    onChosen: (id, address) => {
        area.open(address);
        presentation.dismiss();
    }
}
