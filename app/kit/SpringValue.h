#pragma once
// A number that follows its target as a damped spring does.

#include <QAbstractAnimation>
#include <QtQml/qqmlregistration.h>

namespace ambrel {

// `response` is the period in seconds that the spring would have without damping; `damping` is the ratio to the
// critical one: below 1 it overshoots. A new target on the way takes over place and speed, so nothing jumps.
class SpringValue : public QAbstractAnimation {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(qreal target READ target WRITE setTarget NOTIFY targetChanged)
  Q_PROPERTY(qreal value READ value NOTIFY valueChanged)
  Q_PROPERTY(qreal response MEMBER response_ NOTIFY shapeChanged)
  Q_PROPERTY(qreal damping MEMBER damping_ NOTIFY shapeChanged)
  // Without animation: reduced motion, or nobody looks.
  Q_PROPERTY(bool isInstant MEMBER isInstant_ NOTIFY shapeChanged)
  Q_PROPERTY(bool isSettled READ isSettled NOTIFY settledChanged)

 public:
  using QAbstractAnimation::QAbstractAnimation;

  qreal target() const { return target_; }
  void setTarget(qreal target);
  qreal value() const { return value_; }
  bool isSettled() const { return state() != Running; }

  // Until the distance is below a half of a thousandth of where it began.
  int duration() const override;

 Q_SIGNALS:
  void targetChanged();
  void valueChanged();
  void shapeChanged();
  void settledChanged();

 protected:
  void updateCurrentTime(int milliseconds) override;
  void updateState(State newState, State oldState) override;

 private:
  struct Motion {
    qreal offset = 0;    // from the target
    qreal velocity = 0;  // a second
  };
  Motion motionAt(qreal seconds) const;

  qreal target_ = 0;
  qreal value_ = 0;
  qreal response_ = 0.44;
  qreal damping_ = 0.86;
  bool isInstant_ = false;
  bool hasTarget_ = false;
  Motion start_;
};

}  // namespace ambrel
