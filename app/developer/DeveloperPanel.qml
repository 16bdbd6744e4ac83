import QtQuick
import Ambrel.Developer
import Ambrel.Kit

// The list of one tool. Each panel says what a click on a row does; the button of a row starts it or, once confirmed,
// stops it.
Popover {
    id: root

    required property DeveloperList entries
    readonly property toolListFace face: entries.face
    readonly property bool hasLog: entries.logTitle !== ""
    property string emptyTitle
    property string emptySentence
    // The row whose button was pressed and waits to be confirmed.
    property string asked
    // A row that runs has a page for the browser.
    property bool hasPages: false
    // A click on a row that does not run starts it.
    property bool startsOnClick: false

    signal chosen(string id, string address, string title)
    signal pageAsked(string address)

    implicitWidth: Scaled.px(400)
    implicitHeight: Scaled.px(360)
    fact: face.problem === "" ? face.subLine : ""
    onAboutToOpen: {
        asked = "";
        entries.look();
    }
    onOpenChanged: if (!open && entries)
        entries.closeLog()
    onHasLogChanged: if (hasLog)
        log.forceActiveFocus()
    else
        view.forceActiveFocus()

    EmptyState {
        anchors.centerIn: parent
        width: parent.width
        visible: view.count === 0 && !root.hasLog
        symbol: root.symbol
        title: root.face.problem !== "" ? root.face.problem : root.face.isWorking ? qsTr("Looking…") : root.emptyTitle
        sentence: root.face.problem !== "" ? root.face.sentence : root.emptySentence
    }
    RowsView {
        id: view

        anchors.fill: parent
        anchors.margins: Theme.space2
        focus: true
        visible: !root.hasLog
        model: root.entries.rows

        delegate: FocusScope {
            id: item

            required property toolRow row
            required property int index
            // It may have ended by itself while it was asked.
            readonly property bool isAsked: root.asked === row.rowId && row.isRunning

            width: view.width
            implicitHeight: line.implicitHeight
            onActiveFocusChanged: if (activeFocus)
                view.reveal(index)

            ListRow {
                id: line

                anchors.fill: parent
                focus: true
                symbol: item.row.symbol
                symbolTone: item.row.isFaulty ? Theme.red : item.row.isRunning ? Theme.green : null
                title: item.isAsked ? qsTr("Stop %1?").arg(item.row.title) : item.row.title
                detail: item.row.detail
                isStrong: false
                isPressable: !root.startsOnClick || !item.row.isRunning && !item.row.isBusy
                onClicked: {
                    if (root.startsOnClick)
                        root.entries.act(item.row.rowId, true);
                    else
                        root.chosen(item.row.rowId, item.row.address, item.row.title);
                }

                IconButton {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: root.hasPages && item.row.address !== "" && item.row.isRunning && !item.isAsked
                    symbol: "arrow.up.forward.square"
                    label: qsTr("Open %1 in the browser").arg(item.row.title)
                    onClicked: root.pageAsked(item.row.address)
                }
                Button {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: item.isAsked
                    size: 28
                    kind: Button.Quiet
                    text: qsTr("Cancel")
                    onClicked: root.asked = ""
                }
                Button {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: item.row.verb !== ""
                    enabled: !item.row.isBusy
                    size: 28
                    isCareful: item.isAsked
                    text: item.row.verb
                    label: item.row.verb + " " + item.row.title
                    onClicked: {
                        if (item.row.isRunning && !item.isAsked) {
                            root.asked = item.row.rowId;
                            return;
                        }
                        root.asked = "";
                        root.entries.act(item.row.rowId, !item.row.isRunning);
                    }
                }
            }
        }
    }
    TextBox {
        id: log

        anchors.fill: parent
        anchors.margins: Theme.space2
        visible: root.hasLog
        label: qsTr("Last lines of %1").arg(root.entries.logTitle)
        hint: qsTr("Reading…")
        input.readOnly: true
        input.font: Theme.code.font
        input.text: root.entries.log
        onTextChanged: log.toEnd()
    }
}
