import QtQuick
import Ambrel.Kit

// A short history, 44 x 32. The scale is 0 to 100 unless `maximum` says otherwise; 0 fits the largest value.
SparklineCurve {
    id: root

    property Tone tone: Theme.blue

    color: tone.mark
    Accessible.role: Accessible.Graphic
    Accessible.ignored: true
}
