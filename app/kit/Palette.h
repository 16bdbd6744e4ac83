#pragma once
// Every colour of the interface, once for the dark scheme and once for the light one.

#include <QColor>
#include <QList>

#include "app/kit/Tokens.h"

namespace ambrel {

// One hue in its three duties: `text` for words and counts, `soft` as the ground of a pill, `mark` for rings,
// meters, dots and lines, which need less contrast than words.
struct ToneColors {
  QColor text;
  QColor soft;
  QColor mark;

  friend bool operator==(const ToneColors&, const ToneColors&) = default;
};

struct Palette {
#define AMBREL_COLOR(NAME) QColor NAME;
#define AMBREL_TONE(NAME) ToneColors NAME;
  AMBREL_COLORS(AMBREL_COLOR)
  AMBREL_TONES(AMBREL_TONE)
#undef AMBREL_COLOR
#undef AMBREL_TONE
  QList<QColor> sunburst;  // the inner ring, in the order of the largest folders
};

Palette darkPalette();
Palette lightPalette();

// WCAG 2 contrast of two opaque colours, 1 to 21.
double contrastRatio(const QColor& first, const QColor& second);
// `top` laid over the opaque `ground`.
QColor laidOver(const QColor& top, const QColor& ground);

}  // namespace ambrel
