#pragma once
// The names of the colours, hues and text roles. The palette's fields, the type scale's and the properties of the theme
// are made from these lists; Palette.cpp and TypeScale.cpp have the values.

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

// clang-format on
