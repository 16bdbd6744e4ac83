import QtQuick
import Ambrel.Kit

// A weather symbol in its own colours.
Symbol {
    size: 24
    isPicture: true
    color: Theme.ink2
    sunColor: Theme.weatherSun
    cloudColor: Theme.weatherCloud
    waterColor: Theme.blue.mark
}
