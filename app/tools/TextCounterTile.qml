import Ambrel.Tools

// How long the text on the clipboard is.
TextToolTile {}
