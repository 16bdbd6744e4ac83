import QtQuick
import Ambrel.Kit

// How far a panel has come in: 0 while it is away, 1 in its place.
SpringValue {
    property bool isIn: false

    isInstant: Theme.reducedMotion
    response: isIn ? 0.44 : 0.3
    damping: isIn ? 0.86 : 1
    target: isIn ? 1 : 0
}
