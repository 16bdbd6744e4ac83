#pragma once
// The type scale: each style is a font and the height of its line, in logical pixels.

#include <QFont>

namespace ambrel {

struct TextStyle {
  QFont font;
  qreal line = 0;

  friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

struct TypeScale {
  TextStyle headline;  // of a window
  TextStyle figure;    // the total in the middle of a sunburst
  TextStyle title;
  TextStyle panelTitle;
  TextStyle rowTitle;  // list titles, group heads, buttons
  TextStyle listName;
  TextStyle body;
  TextStyle small;
  TextStyle smallMedium;  // chips
  TextStyle smallStrong;  // small buttons
  TextStyle caption;
  TextStyle captionStrong;  // pills
  TextStyle subLine;
  TextStyle code;
  TextStyle value;
  TextStyle clock;  // also temperatures
  TextStyle timer;
  TextStyle unit;
  TextStyle ringFigure;
};

// `scale` multiplies sizes and lines, which are rounded to whole pixels.
TypeScale typeScale(qreal scale);

}  // namespace ambrel
