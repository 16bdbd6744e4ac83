import Ambrel.Tools

// Whether the clipboard holds JSON; a click lays it out.
TextToolTile {
    worksAtOnce: true
}
