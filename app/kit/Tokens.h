#pragma once
// The names of the colours, hues and text roles, and all measures. The palette's fields, the type scale's and the
// properties of the theme are made from these lists; Palette.cpp and TypeScale.cpp have the values.

// clang-format off

// Grounds are opaque but for bar, barLine, line and lineStrong. The inks reach 4.5:1 on every ground.
#define AMBREL_COLORS(EACH)                                         \
  EACH(bar) EACH(barLine)                                           \
  EACH(tile) EACH(tileHover) EACH(tilePressed)                      \
  EACH(panel) EACH(card) EACH(cardHover) EACH(field) EACH(greySoft) \
  EACH(line) EACH(lineStrong) EACH(track)                           \
  EACH(accent) EACH(accentHover) EACH(accentPressed) EACH(onAccent) \
  EACH(ink) EACH(ink2) EACH(ink3)                                   \
  EACH(weatherSun) EACH(weatherCloud)

// Each tone's text reaches 4.5:1 on tile, panel and its own soft ground.
#define AMBREL_TONES(EACH) \
  EACH(neutral) EACH(orange) EACH(blue) EACH(green) EACH(red) EACH(teal) EACH(violet) EACH(yellow)

// headline: of a window; figure: in the middle of a sunburst; rowTitle: lists, heads of groups, buttons; smallMedium:
// chips; smallStrong: small buttons; captionStrong: pills; clock: temperatures too.
#define AMBREL_TEXT_ROLES(EACH)                                                                     \
  EACH(headline) EACH(figure) EACH(title) EACH(panelTitle) EACH(rowTitle) EACH(listName) EACH(body) \
  EACH(small) EACH(smallMedium) EACH(smallStrong)                                                   \
  EACH(caption) EACH(captionStrong) EACH(subLine) EACH(code)                                        \
  EACH(value) EACH(clock) EACH(timer) EACH(unit) EACH(ringFigure)

// Logical pixels; the stay of a toast in milliseconds.
#define AMBREL_MEASURES(EACH)                                                                                \
  EACH(space1, 4) EACH(space2, 8) EACH(space3, 12) EACH(space4, 16) EACH(space5, 20) EACH(space6, 24)        \
  EACH(radiusBar, 20) EACH(radiusPanel, 16) EACH(radiusTile, 14) EACH(radiusCard, 12) EACH(radiusButton, 10) \
  EACH(radiusSmall, 8) EACH(radiusHighlight, 6) EACH(radiusCheck, 5)                                         \
  EACH(toastStay, 6000)

// They grow with the text.
#define AMBREL_TILE_SIZES(EACH) \
  EACH(tileHeight, 64) EACH(tileSmall, 64) EACH(tileMedium, 112) EACH(tileLarge, 176) EACH(tileExtraLarge, 240)

// clang-format on
