#pragma once
// Buddy's part of the program.

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
  // Uses the area's signals in the rules and shows its notices. The area must outlive this one.
  void follow(Area& area);

 private:
  std::function<Instant()> now_;
  BuddyNoticeCenter center_;
};

}  // namespace ambrel
