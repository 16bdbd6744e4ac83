import QtQuick
import Ambrel.Kit

// What a panel shows below one another, within its padding.
Column {
    x: Theme.space4
    y: Theme.space2
    width: parent ? parent.width - 2 * Theme.space4 : 0
    spacing: Theme.space3
}
