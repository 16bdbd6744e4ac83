import Ambrel.Tools

// Whether the clipboard holds Base64; a click offers to encode and to decode it.
TextToolTile {}
