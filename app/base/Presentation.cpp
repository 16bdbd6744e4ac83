#include "app/base/Presentation.h"

#include <QPointer>

namespace ambrel {

Presentation::Presentation(DelayedStep later, QObject* parent) : QObject(parent), later_(std::move(later)) {}

void Presentation::show() {
  const auto step = state_.show();
  if (!step) return;
  Q_EMIT orderFront();
  Q_EMIT changed();
  schedule(*step);
}

void Presentation::hide() {
  const auto step = state_.hide();
  if (!step) return;
  Q_EMIT changed();
  schedule(*step);
}

void Presentation::schedule(const PresentationStep& step) {
  later_(step.delay, [self = QPointer(this), step] {
    if (!self) return;
    const PresentationState before = self->state_;
    self->state_.carryOut(step);
    if (self->state_ == before) return;
    if (before.isOnScreen && !self->isOnScreen()) Q_EMIT self->orderOut();
    Q_EMIT self->changed();
  });
}

void Presentation::setPeeking(bool isPeeking) {
  if (isPeeking == isPeeking_) return;
  isPeeking_ = isPeeking;
  Q_EMIT changed();
}

void Presentation::dismiss() {
  if (onDismiss)
    onDismiss();
  else
    hide();
}

}  // namespace ambrel
