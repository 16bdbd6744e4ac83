#include "app/tools/ColorLoupe.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <algorithm>

namespace ambrel {
namespace {

constexpr int cells = 15;     // pixels of the picture in the loupe, on each side
constexpr int cellSize = 10;  // each, in the window's pixels
constexpr int loupeSize = cells * cellSize;
constexpr int lineHeight = 30;
constexpr int gap = 24;  // from the pointer
constexpr int quickStep = 10;

// A window that tells screen readers the color below its cross.
class LoupeReading : public QAccessibleObject {
 public:
  explicit LoupeReading(ColorLoupe* loupe) : QAccessibleObject(loupe), loupe_(*loupe) {}

  QWindow* window() const override { return &loupe_; }
  QAccessible::Role role() const override { return QAccessible::Window; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(qGuiApp); }
  QRect rect() const override { return loupe_.geometry(); }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.active = loupe_.isActive();
    state.invisible = !loupe_.isVisible();
    return state;
  }
  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Name) return loupe_.spoken();
    return kind == QAccessible::Description ? ColorLoupe::tr("The arrow keys move the cross. Return takes the color.")
                                            : QString();
  }
  int childCount() const override { return 0; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

 private:
  ColorLoupe& loupe_;
};

QAccessibleInterface* readingOf(const QString&, QObject* object) {
  auto* loupe = qobject_cast<ColorLoupe*>(object);
  return loupe ? new LoupeReading(loupe) : nullptr;
}

}  // namespace

ColorLoupe::ColorLoupe(QImage picture, QScreen* screen, std::function<QString(QColor)> words)
    : picture_(std::move(picture)), words_(std::move(words)) {
  // A second time does nothing.
  QAccessible::installFactory(readingOf);
  setTitle(tr("Color Picker"));
  setCursor(Qt::CrossCursor);
  setScreen(screen);
  setGeometry(screen->geometry());
  follow(QCursor::pos(screen) - screen->geometry().topLeft());
}

qreal ColorLoupe::scale() const { return width() > 0 ? picture_.width() / static_cast<qreal>(width()) : 1; }

void ColorLoupe::follow(QPointF pointer) { moveTo((pointer * scale()).toPoint()); }

QString ColorLoupe::spoken() const { return tr("%1, Color Picker").arg(words_(color())); }

QAccessibleInterface* ColorLoupe::accessibleRoot() const {
  return QAccessible::queryAccessibleInterface(const_cast<ColorLoupe*>(this));
}

void ColorLoupe::moveTo(QPoint place) {
  const QRect before = loupeFrame();
  const QColor was = color();
  place_ = {std::clamp(place.x(), 0, picture_.width() - 1), std::clamp(place.y(), 0, picture_.height() - 1)};
  update(before);
  update(loupeFrame());
  if (color() == was) return;
  QAccessibleEvent event(this, QAccessible::NameChanged);
  QAccessible::updateAccessibility(&event);
}

// Beside the pointer, on the side where there is room.
QRect ColorLoupe::loupeFrame() const {
  const QSize size(loupeSize + 2, loupeSize + lineHeight + 2);
  const QPoint at = (QPointF(place_) / scale()).toPoint();
  QRect frame(at + QPoint(gap, gap), size);
  if (frame.right() >= width()) frame.moveRight(at.x() - gap);
  if (frame.bottom() >= height()) frame.moveBottom(at.y() - gap);
  return frame;
}

void ColorLoupe::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QRectF dirty = event->region().boundingRect();
  painter.drawImage(dirty, picture_, QRectF(dirty.topLeft() * scale(), dirty.size() * scale()));

  const QRect frame = loupeFrame().adjusted(1, 1, -1, -1);
  const QColor under = color();
  QPainterPath shape;
  shape.addRoundedRect(frame, 10, 10);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.save();
  painter.setClipPath(shape);
  painter.fillRect(frame, QColor(0x1c, 0x1c, 0x20));
  // Beyond the screen's edge there is nothing.
  const QRect part(place_ - QPoint(cells / 2, cells / 2), QSize(cells, cells));
  const QRect inside = part & picture_.rect();
  painter.drawImage(QRect(frame.topLeft() + (inside.topLeft() - part.topLeft()) * cellSize, inside.size() * cellSize),
                    picture_, inside);
  const QRect line(frame.x(), frame.y() + loupeSize, frame.width(), frame.height() - loupeSize);
  painter.fillRect(QRect(line.x() + 10, line.y() + 8, 14, line.height() - 16), under);
  painter.setPen(Qt::white);
  QFont font(QStringLiteral("Inter"));
  font.setPixelSize(12);
  font.setWeight(QFont::DemiBold);
  painter.setFont(font);
  const QRect words = line.adjusted(32, 0, -8, 0);
  painter.drawText(words, Qt::AlignVCenter | Qt::AlignLeft,
                   painter.fontMetrics().elidedText(words_(under), Qt::ElideRight, words.width()));
  painter.restore();
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(0, 0, 0, 160), 1));
  painter.drawRoundedRect(QRectF(frame).adjusted(0.5, 0.5, -0.5, -0.5), 10, 10);
  painter.setRenderHint(QPainter::Antialiasing, false);
  // The pixel in the middle, to be seen on any color.
  const QRect middle(frame.topLeft() + QPoint(cells / 2, cells / 2) * cellSize, QSize(cellSize, cellSize));
  painter.setPen(Qt::black);
  painter.drawRect(middle.adjusted(-2, -2, 1, 1));
  painter.setPen(Qt::white);
  painter.drawRect(middle.adjusted(-1, -1, 0, 0));
}

void ColorLoupe::mouseMoveEvent(QMouseEvent* event) { follow(event->position()); }

void ColorLoupe::mousePressEvent(QMouseEvent* event) {
  follow(event->position());
  if (event->button() == Qt::LeftButton)
    Q_EMIT picked(color());
  else
    Q_EMIT left();
}

void ColorLoupe::keyPressEvent(QKeyEvent* event) {
  const int step = event->modifiers() & Qt::ShiftModifier ? quickStep : 1;
  switch (event->key()) {
    case Qt::Key_Left:
      return moveTo(place_ - QPoint(step, 0));
    case Qt::Key_Right:
      return moveTo(place_ + QPoint(step, 0));
    case Qt::Key_Up:
      return moveTo(place_ - QPoint(0, step));
    case Qt::Key_Down:
      return moveTo(place_ + QPoint(0, step));
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      Q_EMIT picked(color());
      return;
    case Qt::Key_Escape:
      Q_EMIT left();
      return;
    default:
      return QRasterWindow::keyPressEvent(event);
  }
}

// A stale picture of the screen must not stay on it.
void ColorLoupe::focusOutEvent(QFocusEvent* event) {
  QRasterWindow::focusOutEvent(event);
  Q_EMIT left();
}

}  // namespace ambrel
