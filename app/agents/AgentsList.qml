import QtQuick
import Ambrel.Agents
import Ambrel.Kit

// The sessions in their order; arrows move along them, Return brings one forward.
FocusScope {
    id: root

    required property AgentsModel agents
    required property bool isShown

    signal sessionChosen(string id)

    onIsShownChanged: if (isShown) {
        list.currentIndex = -1;
        list.positionViewAtBeginning();
    }

    ListView {
        id: list

        anchors.fill: parent
        model: root.agents.rows
        clip: true
        focus: true
        topMargin: 4
        bottomMargin: Theme.space2
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: true
        highlightMoveDuration: 0
        currentIndex: -1
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Sessions")

        delegate: AgentRow {
            id: row

            required property int index

            agents: root.agents
            x: Theme.space2
            width: ListView.view.width - 2 * Theme.space2
            onActiveFocusChanged: if (activeFocus)
                list.currentIndex = index
            onClicked: root.sessionChosen(sessionId)
        }
    }

    ScrollBar {
        view: list
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.topMargin: Theme.space1
        anchors.bottomMargin: Theme.space3
    }
}
