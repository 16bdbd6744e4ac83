#pragma once
// Every colour of the interface, once for the dark scheme and once for the light one.

#include <QColor>
#include <QList>

namespace ambrel {

// One hue in its three duties: `text` for words and counts, `soft` as the ground of a pill, `mark` for rings,
// meters, dots and lines, which need less contrast than words.
struct ToneColors {
  QColor text;
  QColor soft;
  QColor mark;

  friend bool operator==(const ToneColors&, const ToneColors&) = default;
};

// Grounds are opaque but for `bar`, `barLine`, `line` and `lineStrong`. `ink`, `ink2` and `ink3` reach 4.5:1 on
// every ground, each tone's text on `tile`, `panel` and its own `soft`.
struct Palette {
  QColor bar, barLine;
  QColor tile, tileHover, tilePressed;
  QColor panel, card, cardHover, field, greySoft;
  QColor line, lineStrong, track, chatMine;
  QColor accent, accentHover, accentPressed, onAccent;
  QColor ink, ink2, ink3;
  ToneColors neutral, orange, blue, green, red, teal, violet, yellow;
  QColor weatherSun, weatherCloud;
  QList<QColor> sunburst;  // the inner ring, in the order of the largest folders
  QList<QColor> pins;      // grounds of numbered pins, white figures on them
};

Palette darkPalette();
Palette lightPalette();

// WCAG 2 contrast of two opaque colours, 1 to 21.
double contrastRatio(const QColor& first, const QColor& second);
// `top` laid over the opaque `ground`.
QColor laidOver(const QColor& top, const QColor& ground);

}  // namespace ambrel
