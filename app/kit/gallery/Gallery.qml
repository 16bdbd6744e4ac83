import QtQuick
import Ambrel.Kit

Rectangle {
    width: 600
    height: 840
    color: Theme.panel
}
