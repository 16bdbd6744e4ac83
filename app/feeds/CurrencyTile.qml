import QtQuick
import Ambrel.Feeds
import Ambrel.Kit

// The amount in the other currency.
TileFrame {
    id: root

    required property CurrencyModel currency
    property currencyFace face: currency.face

    panel: Qt.resolvedUrl("CurrencyPanel.qml")
    menuText: qsTr("Copy the Result")
    menuSymbol: "doc.on.doc"
    onMenuChosen: currency.copy()
    problem: face.problem
    name: isNarrow ? face.from + " → " + face.to : caption
    fact: isWide ? face.day : ""
    value: face.fault === "" ? face.result : isSmall ? "–" : face.fault
    valueRole: face.fault === "" ? Theme.value : Theme.rowTitle
    valueColor: face.fault === "" ? Theme.ink : Theme.ink2
    subLine: isSmall ? face.from + " → " + face.to : face.source
    label: isUnavailable || face.fault !== "" ? spoken : caption + ", " + qsTr("%1 are %2").arg(face.source).arg(face.result) + ", " + face.day
    tip: isUnavailable ? "" : label
}
