import Ambrel.Tools

// What the link on the clipboard gives away of its reader; a click offers to clean it.
TextToolTile {}
