import QtQuick
import Ambrel.Kit
import Ambrel.Model
import Ambrel.Panels

// A page of settings: cards below one another.
Column {
    required property AppSettings settings
    property PanelsArea area: null

    spacing: Theme.space3
}
