#include "app/kit/TypeScale.h"

#include <QStringList>
#include <cmath>

namespace ambrel {
namespace {

TextStyle style(qreal scale, int size, int line, QFont::Weight weight, qreal spacing = 0,
                const QString& family = QStringLiteral("Inter")) {
  QFont font(QStringList{family});
  font.setPixelSize(qRound(size * scale));
  font.setWeight(weight);
  if (spacing != 0) font.setLetterSpacing(QFont::AbsoluteSpacing, spacing * scale);
  font.setHintingPreference(QFont::PreferNoHinting);
  return {font, std::round(line * scale)};
}

}  // namespace

TypeScale typeScale(qreal scale) {
  return {
      .headline = style(scale, 22, 28, QFont::DemiBold, -0.3),
      .figure = style(scale, 22, 26, QFont::DemiBold, -0.3),
      .title = style(scale, 20, 24, QFont::DemiBold, -0.2),
      .panelTitle = style(scale, 15, 20, QFont::DemiBold),
      .rowTitle = style(scale, 13, 16, QFont::DemiBold),
      .listName = style(scale, 13, 16, QFont::Medium),
      .body = style(scale, 13, 18, QFont::Normal),
      .small = style(scale, 12, 16, QFont::Normal),
      .smallMedium = style(scale, 12, 16, QFont::Medium),
      .smallStrong = style(scale, 12, 16, QFont::DemiBold),
      .caption = style(scale, 11, 14, QFont::Medium),
      .captionStrong = style(scale, 11, 14, QFont::DemiBold),
      .subLine = style(scale, 11, 14, QFont::Normal),
      .code = style(scale, 11, 16, QFont::Normal, 0, QStringLiteral("JetBrains Mono")),
      .value = style(scale, 18, 20, QFont::DemiBold),
      .clock = style(scale, 20, 20, QFont::DemiBold),
      .timer = style(scale, 17, 18, QFont::DemiBold),
      .unit = style(scale, 12, 16, QFont::Medium),
      .ringFigure = style(scale, 12, 16, QFont::DemiBold),
  };
}

}  // namespace ambrel
