#include "app/buddy/Buddy.h"

#include <QPointer>

#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"

namespace ambrel {

Buddy::Buddy(DelayedStep later, QObject* parent) : QObject(parent), later_(std::move(later)) {}

void Buddy::setAsleep(bool asleep) {
  if (replaced(isAsleep_, asleep)) update();
}

void Buddy::showHappy(Seconds length) { begin(happy_, length); }

void Buddy::showError(Seconds length) { begin(error_, length); }

void Buddy::setThinking(bool thinking) {
  if (thinking == isThinking_) return;
  isThinking_ = thinking;
  update();
}

void Buddy::play(BuddyTrigger trigger, Seconds length) {
  played_ = trigger;
  isAsleep_ = false;
  begin(reaction_, length);
}

void Buddy::begin(Spell& spell, Seconds length) {
  spell.isOn = true;
  const int generation = ++spell.generation;
  later_(length, [self = QPointer(this), &spell, generation] {
    if (!self || spell.generation != generation) return;
    spell.isOn = false;
    self->update();
  });
  update();
}

BuddyMood Buddy::mood() const {
  if (isThinking_) return BuddyMood::thinking;
  if (error_.isOn) return BuddyMood::error;
  if (happy_.isOn) return BuddyMood::happy;
  return isAsleep_ ? BuddyMood::asleep : BuddyMood::idle;
}

void Buddy::update() {
  const BuddyPose pose = reaction_.isOn ? BuddyPose(played_) : mood();
  if (replaced(pose_, pose)) Q_EMIT poseChanged();
}

QString Buddy::poseName() const { return toQString(nameOf(pose_)); }

QString Buddy::moodText() const {
  if (isThinking_) return tr("Thinking");
  if (happy_.isOn) return tr("Happy");
  return isAsleep_ ? tr("Asleep") : tr("Awake");
}

}  // namespace ambrel
