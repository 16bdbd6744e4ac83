import QtQuick
import Ambrel.Kit
import Ambrel.Model

// A page of settings: cards below one another.
Column {
    required property AppSettings settings

    spacing: Theme.space3
}
