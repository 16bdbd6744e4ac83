import QtQuick
import Ambrel.Disk
import Ambrel.Kit

// The list of findings. Up and Down move the focus, Space checks a row, Return opens it or asks about it.
FocusScope {
    id: root

    required property DiskDoctor doctor
    readonly property FindingListModel findings: doctor.findings
    readonly property bool isDone: doctor.face.isDone
    // The height that is covered at the bottom; the current row stays above it.
    property real covered: 0

    onCoveredChanged: {
        const row = list.currentItem;
        const excess = row ? row.y + row.height - list.contentY - (list.height - covered) : 0;
        if (covered > 0 && excess > 0)
            list.contentY += excess;
    }

    readonly property Item holder: Window.activeFocusItem
    // What had the keyboard, a button that scans or stops, is no longer there.
    readonly property bool isFocusLost: holder === null || !holder.activeFocusOnTab

    function takeLostFocus() {
        if (isDone && isFocusLost)
            list.forceActiveFocus();
    }
    onIsDoneChanged: Qt.callLater(takeLostFocus) // qmllint disable

    LoadingRows {
        anchors.fill: parent
        visible: !root.isDone
    }
    EmptyState {
        anchors.centerIn: parent
        visible: root.isDone && !root.findings.choice.hasFindings
        symbol: "checkmark.circle"
        title: qsTr("Nothing to clean up")
        sentence: qsTr("No caches, old downloads or copies worth a move were found here.")
    }

    ListView {
        id: list

        readonly property var currentRow: currentItem

        anchors.fill: parent
        visible: root.isDone
        model: root.findings
        clip: true
        focus: true
        activeFocusOnTab: true
        topMargin: Theme.space2
        bottomMargin: Theme.space3 + root.covered
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        currentIndex: -1
        cacheBuffer: 400
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Findings")
        onActiveFocusChanged: if (activeFocus && currentIndex < 0)
            currentIndex = 0
        Keys.onPressed: event => {
            if (currentRow)
                event.accepted = currentRow.entry.pressKey(event.key);
        }

        delegate: FindingDelegate {
            width: ListView.view.width
            isCurrent: ListView.isCurrentItem && ListView.view.activeFocus
            entry.onPointed: list.currentIndex = index
            entry.onSelectAsked: isSelected => root.findings.setSelected(row.rowId, isSelected)
            entry.onOpenAsked: root.findings.toggleOpen(row.rowId)
            entry.onAsked: root.doctor.askAbout(row.rowId)
        }

        footer: Column {
            width: ListView.view ? ListView.view.width : 0

            SkippedNote {
                width: parent.width
                text: root.doctor.face.skippedText
                folders: root.doctor.face.skippedFolders
            }
            SkippedNote {
                width: parent.width
                symbol: "clock"
                text: root.doctor.face.unknownText
            }
        }
    }
    ScrollBar {
        view: list
        visible: list.visible && ratio > 0 && ratio < 1
        anchors {
            right: parent.right
            rightMargin: 1
            top: parent.top
            bottom: parent.bottom
            topMargin: Theme.space2
            bottomMargin: Theme.space2
        }
    }
}
