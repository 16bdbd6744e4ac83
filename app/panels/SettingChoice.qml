import QtQuick
import Ambrel.Kit

// A setting of a few values; `values` are what is stored, `options` their words. A stored value that is none of them
// leaves every word unchosen.
SectionRow {
    id: root

    property list<string> options
    property var values: []
    property var value

    signal chosen(var value)

    Segments {
        label: root.title
        options: root.options
        current: root.values.indexOf(root.value)
        onChosen: index => root.chosen(root.values[index])
    }
}
