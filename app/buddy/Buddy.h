#pragma once
// The character's mood, and the reaction that is played on top of it.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "app/base/Presentation.h"
#include "app/buddy/BuddyPose.h"
#include "core/buddy.h"

namespace ambrel {

// Timed moods and reactions end by themselves; a new one replaces the old one.
class Buddy : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // The name of the pose that is shown.
  Q_PROPERTY(QString pose READ poseName NOTIFY poseChanged FINAL)
  // "Asleep", "Happy"; reactions have no text.
  Q_PROPERTY(QString moodText READ moodText NOTIFY poseChanged FINAL)

 public:
  // The usual length of a reaction.
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
  // A state with an end time; starting it again cancels the earlier end.
  struct Spell {
    bool isOn = false;
    int generation = 0;
  };
  void begin(Spell& spell, Seconds length);
  void update();
  BuddyMood mood() const;

  DelayedStep later_;
  Spell happy_, error_, reaction_;
  BuddyTrigger played_{};
  bool isAsleep_ = false, isThinking_ = false;
  BuddyPose pose_;
};

}  // namespace ambrel
