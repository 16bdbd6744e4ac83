import Ambrel.Tools

// The beginning of the digest of the clipboard's text; a click copies the whole.
TextToolTile {
    worksAtOnce: true
}
