import QtQuick
import Ambrel.Kit
import Ambrel.Notes

// The notes of the shown capture, and what can be done with the review.
Item {
    id: root

    required property ScreenNotesModel notes

    // Escape in a note.
    signal noteDone

    // The note of the chosen pin is to be written.
    function writeChosen() {
        // A row that was just added has no item yet.
        list.forceLayout();
        for (let i = 0; i < list.count; ++i) {
            const row = list.itemAtIndex(i);
            if (row && row.isChosen)
                row.write();
        }
    }

    Label {
        id: heading

        x: Theme.space4
        y: Theme.space4
        text: qsTr("Notes")
        role: Theme.panelTitle
        Accessible.role: Accessible.Heading
    }
    Pill {
        anchors.right: parent.right
        anchors.rightMargin: Theme.space4
        anchors.verticalCenter: heading.verticalCenter
        visible: list.count > 0
        hasDot: false
        text: list.count
    }
    ListView {
        id: list

        anchors {
            left: parent.left
            right: parent.right
            top: heading.bottom
            topMargin: Theme.space3
            bottom: pages.top
            bottomMargin: Theme.space3
        }
        leftMargin: Theme.space4
        rightMargin: Theme.space4
        model: root.notes.pins
        clip: true
        spacing: Theme.space2
        boundsBehavior: Flickable.StopAtBounds
        // Every note can be reached by Tab.
        cacheBuffer: 100000
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Notes")

        delegate: NoteRow {
            width: ListView.view.width - 2 * Theme.space4
            notes: root.notes
            onDone: root.noteDone()
            onLeave: backwards => nextItemInFocusChain(!backwards).forceActiveFocus(backwards ? Qt.BacktabFocusReason : Qt.TabFocusReason)
        }
    }
    ScrollBar {
        view: list
        anchors {
            right: parent.right
            rightMargin: 2
            top: list.top
            bottom: list.bottom
        }
    }
    Label {
        anchors {
            left: list.left
            right: list.right
            top: list.top
            margins: Theme.space4
            topMargin: 0
        }
        visible: list.count === 0
        text: root.notes.face.pageCount === 0 ? qsTr("Capture the screen, then click on it to place a pin.") : qsTr("Click on the capture to place a pin, and write what you see there.")
        color: Theme.ink2
        wrapMode: Text.WordWrap
    }
    Row {
        id: pages

        anchors {
            left: parent.left
            right: parent.right
            margins: Theme.space4
            bottom: buttons.top
            bottomMargin: Theme.space3
        }
        height: Scaled.px(28)
        spacing: Theme.space1

        IconButton {
            symbol: "chevron.left"
            label: qsTr("Previous capture")
            tipKeys: qsTr("Page Up")
            enabled: root.notes.face.pageNumber > 1
            onClicked: root.notes.showPage(root.notes.face.pageNumber - 1)
        }
        Label {
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - 4 * 28 - 4 * Theme.space1
            horizontalAlignment: Text.AlignHCenter
            text: root.notes.face.pageText
            color: Theme.ink2
        }
        IconButton {
            symbol: "chevron.right"
            label: qsTr("Next capture")
            tipKeys: qsTr("Page Down")
            enabled: root.notes.face.pageNumber < root.notes.face.pageCount
            onClicked: root.notes.showPage(root.notes.face.pageNumber + 1)
        }
        IconButton {
            symbol: "camera.viewfinder"
            label: qsTr("Capture the screen again")
            onClicked: root.notes.capture()
        }
        IconButton {
            symbol: "trash"
            label: qsTr("Remove this capture")
            enabled: root.notes.face.pageCount > 0
            onClicked: root.notes.removePage()
        }
    }
    Column {
        id: buttons

        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
            margins: Theme.space4
        }
        spacing: Theme.space2

        Button {
            width: parent.width
            kind: Button.Primary
            size: 36
            symbol: "doc.on.doc"
            text: qsTr("Copy notes")
            enabled: root.notes.face.pageCount > 0
            onClicked: root.notes.copyNotes()
        }
        Row {
            width: parent.width
            spacing: Theme.space2

            Button {
                width: (parent.width - parent.spacing) / 2
                symbol: "square.and.arrow.down"
                text: qsTr("Save PDF…")
                enabled: root.notes.face.pageCount > 0 && !root.notes.face.isExporting
                onClicked: root.notes.savePDF()
            }
            Button {
                width: (parent.width - parent.spacing) / 2
                symbol: "square.and.arrow.down"
                text: qsTr("Save PNG…")
                enabled: root.notes.face.pageCount > 0 && !root.notes.face.isExporting
                onClicked: root.notes.savePNG()
            }
        }
    }
}
