#include "app/kit/Symbol.h"

#include <QPainter>
#include <QQmlInfo>

#include "app/kit/SymbolDrawing.h"
#include "app/kit/SymbolTable.h"

namespace ambrel {

Symbol::Symbol(QQuickItem* parent) : QQuickPaintedItem(parent) { setSize(16); }

void Symbol::setName(const QString& name) {
  if (name_ == name) return;
  name_ = name;
  update();
  Q_EMIT nameChanged();
}

void Symbol::setColor(const QColor& color) {
  if (color_ == color) return;
  color_ = color;
  update();
  Q_EMIT colorChanged();
}

void Symbol::setSize(qreal size) {
  if (qFuzzyCompare(size_, size)) return;
  size_ = size;
  setImplicitSize(size, size);
  update();
  Q_EMIT sizeChanged();
}

void Symbol::setIsPicture(bool isPicture) {
  if (isPicture_ == isPicture) return;
  isPicture_ = isPicture;
  update();
  Q_EMIT isPictureChanged();
}

void Symbol::setSunColor(const QColor& color) { setPictured(sunColor_, color); }
void Symbol::setCloudColor(const QColor& color) { setPictured(cloudColor_, color); }
void Symbol::setWaterColor(const QColor& color) { setPictured(waterColor_, color); }

void Symbol::setPictured(QColor& field, const QColor& color) {
  if (field == color) return;
  field = color;
  if (isPicture_) update();
  Q_EMIT picturedChanged();
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
