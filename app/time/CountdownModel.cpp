#include "app/time/CountdownModel.h"

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

constexpr const char* titleKey = "countdownTitle";
constexpr const char* dateKey = "countdownDate";

}  // namespace

CountdownFace countdownFace(const Countdown& countdown, const Calendar& calendar, Instant now) {
  const int days = daysBetween(dateOf(calendar, now), countdown.date);
  const int apart = std::abs(days);
  CountdownFace face{.title = toQString(countdown.title),
                     .value = days == 0 ? QObject::tr("Today") : QString::number(apart),
                     .date = toQString(formattedDate(calendar, noonOf(calendar, countdown.date), "yMMMMEEEEd")),
                     .isPast = days < 0};
  if (days != 0)
    face.unit = days > 0     ? apart == 1 ? QObject::tr("day") : QObject::tr("days")
                    : apart == 1 ? QObject::tr("day ago")
                             : QObject::tr("days ago");
  if (apart >= 7) {
    const int weeks = apart / 7, rest = apart % 7;
    face.weeks = weeks == 1 ? QObject::tr("1 week") : QObject::tr("%1 weeks").arg(weeks);
    if (rest != 0)
      face.weeks =
          QObject::tr("%1 and %2").arg(face.weeks, rest == 1 ? QObject::tr("1 day") : QObject::tr("%1 days").arg(rest));
  }
  return face;
}

CountdownModel::CountdownModel(TimeSeams seams, QObject* parent) : TimeModel(seams, parent), month_(seams) {
  keep({&month_});
  connect(&month_, &MonthModel::picked, this, [this] {
    date_ = month_.chosen();
    update();
  });
}

Countdown CountdownModel::stored(const Calendar& calendar, Instant now) const {
  auto title = title_ ? title_ : seams_.defaults.string(titleKey);
  if (title && title->empty()) title.reset();
  return countdownOf(title, date_ ? storedMoment(*date_) : seams_.defaults.number(dateKey), calendar, now);
}

void CountdownModel::setTitle(const QString& title) {
  title_ = title.trimmed().toStdString();
  update();
}

void CountdownModel::finish() {
  DefaultsDictionary values;
  if (date_) values[dateKey] = DefaultsValue{storedMoment(*date_)};
  if (title_ && !title_->empty()) values[titleKey] = DefaultsValue{*title_};
  if (title_ && title_->empty()) removeStored(seams_.defaults, titleKey);
  title_.reset();
  date_.reset();
  if (!values.empty()) store(seams_.defaults, std::move(values));
}

void CountdownModel::reset() {
  title_.reset();
  date_.reset();
  removeStored(seams_.defaults, titleKey);
  removeStored(seams_.defaults, dateKey);
  update();
  showDate();
}

void CountdownModel::showDate() { month_.show(stored(seams_.calendar(), seams_.now()).date); }

Instant CountdownModel::renew(const Calendar& calendar, Instant now) {
  month_.tick(now);
  CountdownFace face = countdownFace(stored(calendar, now), calendar, now);
  face.isUsual =
      !date_ && !seams_.defaults.object(dateKey) && (title_ ? title_->empty() : !seams_.defaults.object(titleKey));
  if (replaced(face_, std::move(face))) Q_EMIT changed();
  return calendar.startOfDay(now, 1);
}

}  // namespace ambrel
