import QtQuick
import Ambrel.Kit
import Ambrel.Time

SpanTile {
    required property TimeReadingModel dayProgress

    reading: dayProgress.face
}
