#include "app/notes/MarkDrawing.h"

#include <QPainter>
#include <algorithm>
#include <array>

namespace ambrel {

QColor markColor(std::size_t index) {
  static constexpr std::array<QRgb, 5> colors{0xFFCE3529, 0xFF2F6AE0, 0xFF1A7D3C, 0xFF9A5200, 0xFF7B46C8};
  return QColor::fromRgb(colors[index % colors.size()]);
}

void drawPin(QPainter& painter, QPointF center, std::size_t index, double size) {
  const double edge = size / 12;
  painter.setPen(QPen(Qt::white, edge));
  painter.setBrush(markColor(index));
  painter.drawEllipse(center, size / 2 - edge / 2, size / 2 - edge / 2);
  const QString number = QString::number(index + 1);
  QFont font = painter.font();
  font.setPixelSize(std::max(1, qRound(size * (number.size() > 2 ? 0.36 : 0.5))));
  font.setWeight(QFont::DemiBold);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(QRectF(center.x() - size / 2, center.y() - size / 2, size, size), Qt::AlignCenter, number);
}

void drawMarks(QPainter& painter, const ReviewPage& page, const QRectF& frame, double size) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipRect(frame);
  for (std::size_t i = 0; i < page.highlights.size(); ++i) {
    const NormalizedRect& box = page.highlights[i];
    const QRectF area(frame.x() + box.x * frame.width(), frame.y() + box.y * frame.height(), box.width * frame.width(),
                      box.height * frame.height());
    QColor fill = markColor(i);
    fill.setAlphaF(0.12F);
    const double radius = size / 5;
    painter.setPen(QPen(Qt::white, size / 5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(area, radius, radius);
    painter.setPen(QPen(markColor(i), size / 9));
    painter.setBrush(fill);
    painter.drawRoundedRect(area, radius, radius);
  }
  const double margin = size / 2;
  for (std::size_t i = 0; i < page.pins.size(); ++i) {
    const auto inside = [margin](double at, double from, double to) {
      return to - from < 2 * margin ? (from + to) / 2 : std::clamp(at, from + margin, to - margin);
    };
    const NormalizedPoint& point = page.pins[i].point;
    drawPin(painter,
            {inside(frame.x() + point.x * frame.width(), frame.left(), frame.right()),
             inside(frame.y() + point.y * frame.height(), frame.top(), frame.bottom())},
            i, size);
  }
  painter.restore();
}

}  // namespace ambrel
