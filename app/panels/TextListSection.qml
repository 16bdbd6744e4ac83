import QtQuick
import Ambrel.Kit

// A setting that is a list of texts: a field that adds one, and a row for each. `chosen` says what is wanted.
Section {
    id: root

    required property string title
    property string detail
    property string hint
    // What is spoken of the button that removes one.
    property string removeLabel: qsTr("Remove %1")
    // Untyped: the lint does not know the script methods of lists of strings.
    property var texts: []
    property var nameOf: text => text

    signal chosen(var texts)

    function add(text) {
        const trimmed = text.trim();
        if (trimmed !== "" && !texts.includes(trimmed))
            chosen(texts.concat([trimmed]));
    }

    SectionRow {
        title: root.title
        detail: root.detail
        searchWords: root.texts.join(" ")

        Field {
            width: Scaled.px(240)
            label: root.title
            hint: root.hint
            symbol: "plus"
            onAccepted: {
                root.add(text);
                text = "";
            }
        }
    }
    Repeater {
        model: root.texts

        SectionRow {
            id: line
            required property string modelData

            title: root.nameOf(modelData)
            searchWords: root.title

            IconButton {
                symbol: "xmark"
                label: root.removeLabel.arg(line.title)
                onClicked: root.chosen(root.texts.filter(other => other !== line.modelData))
            }
        }
    }
}
