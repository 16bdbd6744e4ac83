import Ambrel.Tools

// Placeholder text; a click copies the next paragraph.
TextToolTile {
    worksAtOnce: true
}
