#include "app/menu/StatusIcon.h"

#include <QFont>
#include <QPainter>

#include "app/kit/SymbolTable.h"

namespace ambrel {
namespace {

constexpr int sizes[] = {16, 22, 24, 32, 44, 48, 64};

void drawSymbol(QPainter& painter, std::string_view name, const QRectF& box, const QColor& color) {
  const char32_t glyph = glyphOf(name).value_or(U'?');
  QFont font(QString::fromLatin1(symbolFontFamily));
  font.setPixelSize(qMax(1, qRound(box.height())));
  font.setHintingPreference(QFont::PreferNoHinting);
  painter.setFont(font);
  painter.setPen(color);
  painter.drawText(box, Qt::AlignCenter | Qt::TextDontClip, QString::fromUcs4(&glyph, 1));
}

void drawCount(QPainter& painter, int count, const QRectF& box, const Palette& palette) {
  // A gap in the colour of the ground keeps the badge apart from the hand.
  const double gap = box.height() * 0.12;
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette.panel);
  painter.drawEllipse(box.adjusted(-gap, -gap, gap, gap));
  painter.setBrush(palette.orange.mark);
  painter.drawEllipse(box);
  QFont font(QStringLiteral("Inter"));
  font.setWeight(QFont::Bold);
  font.setPixelSize(qMax(1, qRound(box.height() * (count > 9 ? 0.62 : 0.82))));
  font.setHintingPreference(QFont::PreferNoHinting);
  painter.setFont(font);
  painter.setPen(palette.onAccent);
  painter.drawText(box, Qt::AlignCenter | Qt::TextDontClip, count > 9 ? QStringLiteral("9+") : QString::number(count));
}

}  // namespace

QImage statusImage(int attention, const Palette& palette, int size) {
  QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  const QRectF whole(0, 0, size, size);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette.panel);
  painter.drawRoundedRect(whole, size * 0.22, size * 0.22);
  if (attention <= 0) {
    const double margin = size * 0.12;
    drawSymbol(painter, "dock.rectangle", whole.adjusted(margin, margin, -margin, -margin), palette.ink);
    return image;
  }
  drawSymbol(painter, "hand.raised.fill", QRectF(0, size * 0.06, size * 0.74, size * 0.74), palette.ink);
  const double badge = size * 0.56;
  const double edge = size * 0.97 - badge;
  drawCount(painter, attention, QRectF(edge, edge, badge, badge), palette);
  return image;
}

QIcon statusIcon(int attention, const Palette& palette) {
  QIcon icon;
  for (const int size : sizes) icon.addPixmap(QPixmap::fromImage(statusImage(attention, palette, size)));
  return icon;
}

}  // namespace ambrel
