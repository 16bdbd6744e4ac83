#include "app/kit/Symbol.h"

#include <QPainter>
#include <QQmlInfo>

#include "app/kit/SymbolDrawing.h"
#include "app/kit/SymbolTable.h"

namespace ambrel {

Symbol::Symbol(QQuickItem* parent) : StyledItem(parent) { Symbol::restyle(); }

void Symbol::restyle() {
  setImplicitSize(size_, size_);
  update();
}

void Symbol::paint(QPainter* painter) {
  if (name_.isEmpty()) return;
  const std::string name = name_.toStdString();
  const QRectF box((width() - size_) / 2, (height() - size_) / 2, size_, size_);
  if (const auto weather = weatherOf(name)) {
    const bool own = isPicture_;
    drawWeather(*painter, box, *weather,
                {own ? sunColor_ : color_, own ? cloudColor_ : color_, own ? waterColor_ : color_});
    return;
  }
  const char32_t glyph = glyphOf(name).value_or(U'?');
  QFont font(QStringList{glyph == U'?' ? QStringLiteral("Inter") : QString::fromLatin1(symbolFontFamily)});
  font.setPixelSize(qMax(1, qRound(size_)));
  font.setHintingPreference(QFont::PreferNoHinting);
  painter->setRenderHint(QPainter::TextAntialiasing);
  painter->setFont(font);
  painter->setPen(color_);
  painter->drawText(box, Qt::AlignCenter | Qt::TextDontClip, QString::fromUcs4(&glyph, 1));
}

}  // namespace ambrel
