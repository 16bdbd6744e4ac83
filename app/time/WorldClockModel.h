#pragma once
// The time in other cities.

#include "app/time/CityList.h"

namespace ambrel {

struct CityTimeRow {
  Q_GADGET
  QML_VALUE_TYPE(cityTimeRow)
  Q_PROPERTY(QString rowId MEMBER id FINAL)

 public:
  QString id{};
  FACE_FIELDS(QString, name, time);       // "Tokyo", "10:41 PM"
  FACE_FIELDS(QString, difference, day);  // "+8 h", "same time"; "Tomorrow", or "" for the user's own day
  FACE_FIELDS(QString, detail);           // "Tomorrow, +8 h", "+8 h"
  FACE_FIELDS(QString, country);          // "Japan"
  FACE_FIELDS(bool, isNight);

  bool operator==(const CityTimeRow&) const = default;
};
CityTimeRow cityTimeRow(const City& city, const Calendar& own, Instant now);

class WorldClockModel : public ambrel::TimeModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT FINAL)
  Q_PROPERTY(ambrel::CityList* cities READ cities CONSTANT FINAL)
  // All of it, to be read out.
  Q_PROPERTY(QString summary READ summary NOTIFY changed FINAL)

 public:
  static constexpr const char* key = "worldClockZones";

  explicit WorldClockModel(TimeSeams seams, QObject* parent = nullptr);

  RowList* rows() { return &rows_; }
  CityList* cities() { return &cities_; }
  const QString& summary() const { return summary_; }

 private:
  Instant renew(const Calendar& calendar, Instant now) override;

  CityList cities_;
  GadgetListModel<CityTimeRow> rows_;
  QString summary_;
};

}  // namespace ambrel
