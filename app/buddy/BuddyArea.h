#pragma once
// Buddy: what he looks at, says and keeps.

#include "app/base/Area.h"
#include "app/buddy/BuddyNoticeCenter.h"

namespace ambrel {

class BuddyArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::BuddyNoticeCenter* center READ center CONSTANT FINAL)

 public:
  explicit BuddyArea(BuddyNoticeCenter::Seams seams, QObject* parent = nullptr);

  BuddyNoticeCenter* center() { return &center_; }
  // From now on the rules look at what this area knows, and its messages are Buddy's. It outlives him.
  void follow(Area& area);

 private:
  std::function<Instant()> now_;
  BuddyNoticeCenter center_;
};

}  // namespace ambrel
