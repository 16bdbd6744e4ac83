#pragma once
// The type scale: each style is a font and the height of its line, in logical pixels.

#include <QFont>

#include "app/kit/Tokens.h"

namespace ambrel {

struct TextStyle {
  QFont font;
  qreal line = 0;

  friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

struct TypeScale {
#define AMBREL_ROLE(NAME) TextStyle NAME;
  AMBREL_TEXT_ROLES(AMBREL_ROLE)
#undef AMBREL_ROLE
};

// `scale` multiplies sizes and lines, which are rounded to whole pixels.
TypeScale typeScale(qreal scale);

}  // namespace ambrel
