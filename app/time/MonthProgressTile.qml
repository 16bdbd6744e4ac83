import QtQuick
import Ambrel.Kit
import Ambrel.Time

SpanTile {
    required property TimeReadingModel monthProgress

    reading: monthProgress.face
}
