#include "app/context/TileDrag.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QQuickItem>
#include <algorithm>

#include "app/base/QmlObjects.h"
#include "app/base/StoredValue.h"

namespace ambrel {
namespace {

// The windows have heard nothing of the pointer during the drag: what is below it lights up, and nothing else.
void tellOfPointer(QWindow* source, const QPoint& at) {
  QWindow* below = QGuiApplication::topLevelAt(at);
  if (source && source != below) QCoreApplication::postEvent(source, new QEvent(QEvent::Leave));
  if (below)
    QCoreApplication::postEvent(below, new QMouseEvent(QEvent::MouseMove, below->mapFromGlobal(QPointF(at)), at,
                                                       Qt::NoButton, Qt::NoButton, Qt::NoModifier));
}

// Escape is for the drag, whoever has the keyboard. Other platforms have no such grab, and complain when asked for one.
void grabKeyboard(QWindow* window, bool isGrabbed) {
  if (window && QGuiApplication::platformName() == QLatin1String("xcb")) window->setKeyboardGrabEnabled(isGrabbed);
}

}  // namespace

TileDrag::TileDrag(AppModel& model, QObject* parent) : QObject(parent), model_(model) {
  keep({this});
  connect(&model_, &AppModel::activeProfileChanged, this, &TileDrag::cancel);
}

TileDrag::~TileDrag() = default;

QString TileDrag::item() const { return held_ ? toQString(held_->id.text()) : QString(); }

QString TileDrag::widget() const { return held_ && held_->widget ? toQString(*held_->widget) : QString(); }

void TileDrag::begin(QQuickItem* source, const QString& widget, const QString& item, int span, QPointF grip) {
  const Profile* profile = model_.activeProfile();
  if (isActive() || !profile || !source || !source->window()) return;
  const auto found = std::ranges::find_if(profile->items, [&](const DockItem& each) {
    return item.isEmpty() ? each.widget == widget.toStdString() : toQString(each.id.text()) == item;
  });
  if (found != profile->items.end())
    held_ = *found;
  else if (item.isEmpty())
    held_ = DockItem::holding(widget.toStdString());
  else
    return;
  profile_ = profile->id;
  isSample_ = item.isEmpty();
  span_ = span;
  window_ = source->window();
  grip_ = grip.toPoint();
  frame_ = QRect({}, source->size().toSize());
  grabKeyboard(window_, true);
  qGuiApp->installEventFilter(this);
  moveTo(source->mapToGlobal(grip).toPoint());
  Q_EMIT changed();
}

QPointF TileDrag::offsetFrom(const QQuickItem* item) const {
  return item ? frame_.topLeft() - item->mapToGlobal(QPointF(0, 0)) : QPointF();
}

std::vector<DockItem> TileDrag::shown(const Profile& profile) const {
  if (!held_ || profile.id != profile_) return profile.items;
  if (spot_) return itemsWhileHeld(profile.items, *held_, spot_->before);
  if (isSample_) return profile.items;
  auto others = profile.items;
  std::erase_if(others, [&](const DockItem& each) { return each.id == held_->id; });
  return others;
}

bool TileDrag::eventFilter(QObject* target, QEvent* event) {
  if (!held_ || !target->isWindowType()) return false;
  switch (event->type()) {
    case QEvent::MouseMove:
    case QEvent::TouchUpdate:
      moveTo(static_cast<QPointerEvent*>(event)->point(0).globalPosition().toPoint());
      return true;
    case QEvent::MouseButtonRelease:
    case QEvent::TouchEnd:
      // What began the drag hears of the release, too.
      drop();
      return false;
    case QEvent::TouchCancel:
      cancel();
      return false;
    case QEvent::Hide:
    case QEvent::Close:
      if (target == window_) cancel();
      return false;
    case QEvent::KeyPress:
      if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) cancel();
      return true;
    default:
      return false;
  }
}

void TileDrag::moveTo(const QPoint& at) {
  at_ = at;
  frame_.moveTopLeft(at - grip_);
  look();
  Q_EMIT moved();
}

void TileDrag::look() {
  const auto spot = held_ && spotAt ? spotAt(at_) : std::nullopt;
  if (spot == spot_) return;
  spot_ = spot;
  Q_EMIT changed();
}

void TileDrag::drop() {
  // The edit ends the drag, so that the bar goes from what it shows to the same.
  const DockItem held = *held_;
  const auto spot = spot_;
  if (removes())
    model_.removeItem(held.id, profile_);
  else if (spot)
    model_.placeItem(held, profile_, spot->before);
  end();
}

void TileDrag::end() {
  if (!held_) return;
  qGuiApp->removeEventFilter(this);
  grabKeyboard(window_, false);
  tellOfPointer(window_, at_);
  held_.reset();
  spot_.reset();
  window_.clear();
  Q_EMIT changed();
}

}  // namespace ambrel
