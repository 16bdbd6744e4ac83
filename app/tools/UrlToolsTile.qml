import Ambrel.Tools

// How many trackers the link on the clipboard has; a click offers to remove them.
TextToolTile {}
