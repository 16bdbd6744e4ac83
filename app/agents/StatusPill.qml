import QtQuick
import Ambrel.Agents
import Ambrel.Kit

// The status of a session in a word and a colour. `status` is the name of the case.
Pill {
    id: root

    required property string status

    tone: status === "needsInput" ? Theme.orange : status === "working" ? Theme.blue : status === "finished" ? Theme.green : Theme.neutral
}
