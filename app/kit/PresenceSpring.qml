import QtQuick
import Ambrel.Kit

// How far a panel has come in: 0 while it is away, 1 in its place.
SpringValue {
    property bool isIn: false
    // Never just below 1: the software renderer takes 0.99999 and 1 for the same, and would draw with 255/256 from then on.
    readonly property real opacity: value > 0.99 ? 1 : value

    isInstant: Theme.reducedMotion
    response: isIn ? 0.44 : 0.3
    damping: isIn ? 0.86 : 1
    target: isIn ? 1 : 0
}
