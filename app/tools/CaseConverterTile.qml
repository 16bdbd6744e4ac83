import Ambrel.Tools

// The letter case to which a click opens the way.
TextToolTile {}
