import Ambrel.Tools

// A new password; a click copies it.
TextToolTile {
    worksAtOnce: true
}
