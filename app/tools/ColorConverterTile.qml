import Ambrel.Tools

// The color on the clipboard; a click copies it in another notation.
TextToolTile {
    worksAtOnce: true
}
