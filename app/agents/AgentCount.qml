import QtQuick
import Ambrel.Agents
import Ambrel.Kit

// A count in the colour of its status, with the word beneath.
Column {
    id: root

    required property int count
    required property string word
    required property Tone tone

    Label {
        text: root.count
        role: Theme.value
        color: root.tone.text
        Accessible.ignored: true
    }
    Label {
        text: root.word
        role: Theme.subLine
        color: Theme.ink2
        Accessible.ignored: true
    }
}
