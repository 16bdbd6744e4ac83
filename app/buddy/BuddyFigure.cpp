#include "app/buddy/BuddyFigure.h"

#include <QPainter>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QRandomGenerator>

#include "app/base/Replaced.h"
#include "app/buddy/BuddyDrawing.h"
#include "app/buddy/BuddyMotion.h"
#include "app/kit/Theme.h"

namespace ambrel {
namespace {

constexpr qreal box = 64;

bool hasOpenEyes(const BuddyLook& look) { return look.leftEye == BuddyEye::open || look.rightEye == BuddyEye::open; }

}  // namespace

BuddyFigure::BuddyFigure(QQuickItem* parent) : QQuickPaintedItem(parent), stance_(lookOf(pose_).stance) {
  setImplicitSize(box + 2 * margin, box + 2 * margin);
  connect(this, &BuddyFigure::styleChanged, this, &BuddyFigure::followStyle);
  blinkTimer_.setSingleShot(true);
  blinkTimer_.setTimerType(Qt::CoarseTimer);
  connect(&blinkTimer_, &QTimer::timeout, this, [this] {
    if (!isBlinking_) {
      blink();
      return;
    }
    isBlinking_ = false;
    update();
    waitForBlink();
  });
}

void BuddyFigure::setPose(const QString& name) {
  if (!replaced(pose_, poseNamed(name.toStdString()).value_or(BuddyMood::idle))) return;
  const BuddyLook& look = lookOf(pose_);
  if (isStill() || !isSeen()) {
    rest();
  } else {
    start_ = stance_;
    if (!motion_) {
      motion_ = std::make_unique<QVariantAnimation>();
      connect(motion_.get(), &QVariantAnimation::valueChanged, this, [this](const QVariant& seconds) {
        stance_ = stanceAt(start_, lookOf(pose_), seconds.toReal());
        update();
      });
    }
    motion_->stop();
    motion_->setDuration(qRound(look.seconds * 1000));
    motion_->setStartValue(0.0);
    motion_->setEndValue(look.seconds);
    motion_->start();
    update();
  }
  isBlinking_ = false;
  blinkTimer_.stop();
  waitForBlink();
  Q_EMIT poseChanged();
}

// Takes the pose without animation.
void BuddyFigure::rest() {
  if (motion_) motion_->stop();
  stance_ = lookOf(pose_).stance;
  update();
}

void BuddyFigure::followStyle() {
  const qreal whole = boxSize_ * (box + 2 * margin) / box;
  setImplicitSize(whole, whole);
  if (isStill() || !isLive_) rest();
  waitForBlink();
  update();
}

void BuddyFigure::componentComplete() {
  QQuickPaintedItem::componentComplete();
  theme_ = &themeOf(*qmlEngine(this));
  connect(theme_, &Theme::schemeChanged, this, [this] { update(); });
  connect(theme_, &Theme::motionChanged, this, &BuddyFigure::followStyle);
  followStyle();
}

bool BuddyFigure::isStill() const { return theme_ && theme_->reducedMotion(); }

bool BuddyFigure::isSeen() const { return isLive_ && isVisible() && window() && window()->isVisible(); }

bool BuddyFigure::mayBlink() const { return isSeen() && !isStill() && hasOpenEyes(lookOf(pose_)); }

void BuddyFigure::waitForBlink() {
  if (!mayBlink()) {
    blinkTimer_.stop();
    if (std::exchange(isBlinking_, false)) update();
    return;
  }
  if (isBlinking_ || blinkTimer_.isActive()) return;
  blinkTimer_.start(QRandomGenerator::global()->bounded(shortestBlinkWait, longestBlinkWait + 1));
}

void BuddyFigure::blink() {
  if (!mayBlink()) return;
  isBlinking_ = true;
  update();
  blinkTimer_.start(blinkLength);
}

void BuddyFigure::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickPaintedItem::itemChange(change, data);
  if (change == ItemSceneChange && data.window) {
    connect(data.window, &QWindow::visibleChanged, this, &BuddyFigure::waitForBlink, Qt::UniqueConnection);
  }
  if (change != ItemVisibleHasChanged && change != ItemSceneChange) return;
  if (!isSeen()) rest();
  waitForBlink();
}

void BuddyFigure::paint(QPainter* painter) {
  const qreal scale = boxSize_ / box;
  painter->translate((width() - boxSize_) / 2, (height() - boxSize_) / 2);
  painter->scale(scale, scale);
  if (!theme_) return;
  const Palette& palette = theme_->palette();
  drawBuddy(*painter, lookOf(pose_), stance_, buddyColors(theme_->dark(), palette.ink2, palette.greySoft, palette.ink),
            isBlinking_);
}

}  // namespace ambrel
