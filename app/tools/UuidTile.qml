import Ambrel.Tools

// A new UUID; a click copies it.
TextToolTile {
    worksAtOnce: true
}
