#pragma once
// The character's state of mind: his mood, and the reaction that he plays over it.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "app/base/Presentation.h"
#include "app/buddy/BuddyPose.h"
#include "core/buddy.h"

namespace ambrel {

// Moods and reactions that last for a while end by themselves; a new one takes over from the old.
class Buddy : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // The name of what he shows.
  Q_PROPERTY(QString pose READ poseName NOTIFY poseChanged FINAL)
  // "Asleep", "Happy"; a reaction has no words of its own.
  Q_PROPERTY(QString moodText READ moodText NOTIFY poseChanged FINAL)

 public:
  // For a reaction that nobody waits for.
  static constexpr Seconds briefly{2};

  explicit Buddy(DelayedStep later, QObject* parent = nullptr);

  void setAsleep(bool asleep);
  void showHappy(Seconds length);
  void showError(Seconds length);
  // Works on an answer, until he is told that he has it.
  void setThinking(bool thinking);
  // Wakes him.
  void play(BuddyTrigger trigger, Seconds length = briefly);

  BuddyPose pose() const { return pose_; }
  QString poseName() const;
  QString moodText() const;
  bool isAsleep() const { return isAsleep_; }

 Q_SIGNALS:
  void poseChanged();

 private:
  // Holds for a while; a later one in the same place makes the end of the earlier one void.
  struct Spell {
    bool isOn = false;
    int generation = 0;
  };
  void begin(Spell& spell, Seconds length);
  void update();
  BuddyPose mood() const;

  DelayedStep later_;
  Spell happy_, error_, reaction_;
  BuddyPose reactionPose_ = BuddyPose::idle;
  bool isAsleep_ = false, isThinking_ = false;
  BuddyPose pose_ = BuddyPose::idle;
};

// The reaction of the same name.
BuddyPose poseOf(BuddyTrigger trigger);

}  // namespace ambrel
