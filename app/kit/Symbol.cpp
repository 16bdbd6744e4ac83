#include "app/kit/Symbol.h"

#include <QPainter>
#include <QQmlEngine>
#include <cmath>

#include "app/kit/SymbolDrawing.h"
#include "app/kit/SymbolTable.h"
#include "app/kit/Theme.h"

namespace ambrel {

Symbol::Symbol(QQuickItem* parent) : StyledItem(parent) { Symbol::restyle(); }

void Symbol::componentComplete() {
  StyledItem::componentComplete();
  if (QQmlEngine* engine = qmlEngine(this)) {
    theme_ = &themeOf(*engine);
    connect(theme_, &Theme::textScaleChanged, this, &Symbol::restyle);
    if (shownSize() != size_) restyle();
  }
}

qreal Symbol::shownSize() const { return theme_ ? std::round(size_ * theme_->textScale()) : size_; }

void Symbol::restyle() {
  setImplicitSize(shownSize(), shownSize());
  update();
}

void Symbol::paint(QPainter* painter) {
  if (name_.isEmpty()) return;
  const std::string name = name_.toStdString();
  const qreal side = shownSize();
  const QRectF box((width() - side) / 2, (height() - side) / 2, side, side);
  if (const auto weather = weatherOf(name)) {
    const bool own = isPicture_;
    drawWeather(*painter, box, *weather,
                {own ? sunColor_ : color_, own ? cloudColor_ : color_, own ? waterColor_ : color_});
    return;
  }
  const char32_t glyph = glyphOf(name).value_or(U'?');
  QFont font(QStringList{glyph == U'?' ? QStringLiteral("Inter") : QString::fromLatin1(symbolFontFamily)});
  font.setPixelSize(qMax(1, qRound(side)));
  font.setHintingPreference(QFont::PreferNoHinting);
  painter->setRenderHint(QPainter::TextAntialiasing);
  painter->setFont(font);
  painter->setPen(color_);
  painter->drawText(box, Qt::AlignCenter | Qt::TextDontClip, QString::fromUcs4(&glyph, 1));
}

}  // namespace ambrel
