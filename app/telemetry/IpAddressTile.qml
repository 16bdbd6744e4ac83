import QtQuick
import Ambrel.Kit
import Ambrel.Telemetry

// The address on the local network.
LiveTile {
    required property LiveModels readings

    isPressable: true
    onActivated: copyAsked(readings.addressToCopy())
    // A whole address fits the narrowest tile that has a caption.
    valueRole: span === TileFrame.Medium ? Theme.caption : Theme.rowTitle
    wrapsInSmall: true
}
