import QtQuick
import Ambrel.Kit
import Ambrel.Time

SpanTile {
    required property TimeReadingModel yearProgress

    reading: yearProgress.face
}
