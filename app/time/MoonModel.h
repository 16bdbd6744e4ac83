#pragma once
// The phase of the moon, and the next quarters.

#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/time/TimeModel.h"

namespace ambrel {

struct MoonRow {
  Q_GADGET
  QML_VALUE_TYPE(moonRow)
 public:
  QString id{};
  FACE_FIELDS(QString, title, figure);  // "Full Moon", "Tue, Nov 24, 3:53 PM"
  bool operator==(const MoonRow&) const = default;
};

struct MoonFace {
  Q_GADGET
  QML_VALUE_TYPE(moonFace)
 public:
  FACE_FIELDS(QString, name);       // "Waxing Gibbous"
  FACE_FIELDS(QString, lit, next);  // "93 % lit", "Full Moon in 2 days"
  FACE_FIELDS(int, percent);        // lit
  FACE_FIELDS(bool, isWaxing);

  bool operator==(const MoonFace&) const = default;
};

class MoonModel : public ambrel::TimeModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::MoonFace face READ face NOTIFY changed FINAL)
  Q_PROPERTY(ambrel::RowList* events READ events CONSTANT FINAL)

 public:
  explicit MoonModel(TimeSeams seams, QObject* parent = nullptr) : TimeModel(std::move(seams), parent) {}

  const MoonFace& face() const { return face_; }
  RowList* events() { return &events_; }

 private:
  Instant renew(const Calendar& calendar, Instant now) override;

  MoonFace face_;
  GadgetListModel<MoonRow> events_;
};

}  // namespace ambrel
