import QtQuick
import Ambrel.Agents
import Ambrel.Kit

// The sessions in their order; arrows move along them, Return brings one forward.
ListView {
    id: root

    required property AgentsModel agents
    required property bool isShown

    signal sessionChosen(string id)

    model: agents
    clip: true
    focus: true
    topMargin: 4
    bottomMargin: Theme.space2
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: true
    highlightFollowsCurrentItem: true
    highlightMoveDuration: 0
    currentIndex: -1
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Sessions")
    onIsShownChanged: if (isShown) {
        currentIndex = -1;
        positionViewAtBeginning();
    }

    delegate: AgentRow {
        id: row

        required property int index

        x: Theme.space2
        width: ListView.view.width - 2 * Theme.space2
        onActiveFocusChanged: if (activeFocus)
            root.currentIndex = index
        onClicked: root.sessionChosen(sessionId)
    }

    ScrollBar {
        view: root
    }
}
