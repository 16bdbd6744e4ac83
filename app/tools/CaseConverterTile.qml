import Ambrel.Tools

// The chosen letter case; a click opens the panel.
TextToolTile {}
