#pragma once
// Working hours in several cities side by side, and a moment of the day that is told in all of them.

#include <QVariantList>

#include "app/time/CityList.h"
#include "core/time/Meeting.h"

namespace ambrel {

// A stretch of a place's day, as shares of the user's day. Those of work are within those awake, and come after them.
struct HoursSpan {
  Q_GADGET
  QML_VALUE_TYPE(hoursSpan)
 public:
  FACE_FIELDS(qreal, from, to);
  FACE_FIELDS(bool, isWorking);  // otherwise awake
  bool operator==(const HoursSpan&) const = default;
};

struct MeetingRow {
  Q_GADGET
  QML_VALUE_TYPE(meetingRow)
  Q_PROPERTY(QString rowId MEMBER id FINAL)

 public:
  QString id{};
  FACE_FIELDS(QString, name, time, detail);  // "Tokyo", "11:00 PM", "Tomorrow, asleep"
  FACE_FIELDS(bool, isOwn, isWorking);       // isWorking: at the chosen moment
  FACE_FIELDS(QVariantList, spans);          // HoursSpan

  bool operator==(const MeetingRow&) const = default;
};

struct MeetingFace {
  Q_GADGET
  QML_VALUE_TYPE(meetingFace)
 public:
  FACE_FIELDS(QString, day, shortDay);    // "Monday, November 23", "Mon"; shortDay is empty for today
  FACE_FIELDS(QString, best, begins);     // "3:00 PM – 5:00 PM", "3:00 PM"; empty when no two are at work together
  FACE_FIELDS(QString, note);             // "All 3 at work", "2 of 3 at work", "No common hours"
  FACE_FIELDS(QString, moment);           // "3:00 PM"
  FACE_FIELDS(int, position, positions);  // of the moment, in quarters of an hour
  FACE_FIELD(qreal, now, -1);             // below zero on another day

  bool operator==(const MeetingFace&) const = default;
};

class MeetingModel : public ambrel::TimeModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::MeetingFace face READ face NOTIFY changed FINAL)
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT FINAL)
  Q_PROPERTY(ambrel::CityList* cities READ cities CONSTANT FINAL)

 public:
  static constexpr const char* key = "meetingZones";

  // While none are chosen, the cities are those of the world clock.
  MeetingModel(TimeSeams seams, CityList& usual, QObject* parent = nullptr);

  const MeetingFace& face() const { return face_; }
  RowList* rows() { return &rows_; }
  CityList* cities() { return &cities_; }

  Q_INVOKABLE void setPosition(int position);
  Q_INVOKABLE void moveDays(int days);
  // To the next day on which most are at work at some time, and to that time.
  Q_INVOKABLE void goToBest();
  // The moment as a text to send.
  Q_INVOKABLE QString proposal() const;

 private:
  Instant renew(const Calendar& calendar, Instant now) override;
  void makeRows(const MeetingDay& day, const Calendar& calendar);

  CityList cities_;
  std::optional<Date> ownDay_;
  std::optional<int> ownPosition_;
  Date day_;
  MeetingFace face_;
  GadgetListModel<MeetingRow> rows_;
};

}  // namespace ambrel
