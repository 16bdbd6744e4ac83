#include "app/dock/Presentation.h"

#include <QPointer>

namespace ambrel {

Presentation::Presentation(DelayedStep later, QObject* parent) : QObject(parent), later_(std::move(later)) {}

void Presentation::show() {
  if (isShown_) return;
  const int generation = ++generation_;
  isShown_ = true;
  isOnScreen_ = true;
  emit orderFront();
  emit changed();
  later_(contentDelay, [self = QPointer(this), this, generation] {
    if (!self || generation != generation_) return;
    isContentShown_ = true;
    emit changed();
  });
}

void Presentation::hide() {
  if (!isShown_) return;
  const int generation = ++generation_;
  isShown_ = false;
  isContentShown_ = false;
  emit changed();
  later_(orderOutDelay, [self = QPointer(this), this, generation] {
    if (!self || generation != generation_) return;
    isOnScreen_ = false;
    emit orderOut();
    emit changed();
  });
}

void Presentation::setPeeking(bool isPeeking) {
  if (isPeeking == isPeeking_) return;
  isPeeking_ = isPeeking;
  emit changed();
}

void Presentation::dismiss() {
  if (onDismiss)
    onDismiss();
  else
    hide();
}

}  // namespace ambrel
