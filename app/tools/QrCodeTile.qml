import Ambrel.Tools

// How large the QR code of the clipboard's text is; a click shows it.
TextToolTile {}
