#include "app/time/MeetingModel.h"

#include <algorithm>

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"
#include "core/base/Text.h"
#include "core/settings.h"

namespace ambrel {
namespace {

QVariantList spansOf(const std::vector<Availability>& quarters) {
  QVariantList spans;
  const auto whole = static_cast<qreal>(quarters.size());
  for (const Availability least : {Availability::awake, Availability::working})
    for (std::size_t from = 0, to = 0; from < quarters.size(); from = to) {
      const bool isIn = quarters[from] >= least;
      while (to < quarters.size() && (quarters[to] >= least) == isIn) ++to;
      if (isIn)
        spans << QVariant::fromValue(HoursSpan{.from = static_cast<qreal>(from) / whole,
                                               .to = static_cast<qreal>(to) / whole,
                                               .isWorking = least == Availability::working});
    }
  return spans;
}

QString stateText(Availability state) {
  switch (state) {
    case Availability::asleep:
      return QObject::tr("asleep");
    case Availability::awake:
      return QObject::tr("off work");
    case Availability::working:
      return QObject::tr("at work");
  }
  return {};
}

}  // namespace

MeetingModel::MeetingModel(TimeSeams seams, CityList& usual, QObject* parent)
    : TimeModel(seams, parent),
      cities_(
          seams,
          [this, &usual] {
            const std::string stored = seams_.defaults.string(key).value_or("");
            std::vector<std::string> texts;
            for (const auto text : split(stored, ',')) texts.emplace_back(text);
            std::vector<City> cities = citiesOf(texts, seams_.calendar().locale());
            return cities.empty() ? usual.cities() : cities;
          },
          [this](const std::vector<City>& cities) {
            std::string stored;
            const Calendar calendar = seams_.calendar();
            for (const City& city : cities)
              stored.append(stored.empty() ? "" : ",").append(storedForm(city, calendar.locale()));
            store(seams_.defaults, key, DefaultsValue{std::move(stored)});
            // Without a city of its own, it has those of the world clock again.
            cities_.reload();
          }) {
  keep({&cities_});
  connect(&cities_, &CityList::changed, this, [this] { update(); });
  connect(&usual, &CityList::changed, &cities_, &CityList::reload);
}

void MeetingModel::setPosition(int position) {
  ownPosition_ = position;
  update();
}

void MeetingModel::moveDays(int days) {
  ownDay_ = daysLater(day_, days);
  update();
}

void MeetingModel::goToBest() {
  ownDay_.reset();
  ownPosition_.reset();
  update();
}

QString MeetingModel::proposal() const {
  QStringList lines{face_.day};
  for (const MeetingRow& row : rows_.rows()) lines << row.name + QStringLiteral(": ") + row.time;
  return lines.join(u'\n');
}

void MeetingModel::makeRows(const MeetingDay& day, const Calendar& calendar) {
  std::vector<MeetingRow> rows;
  const Instant moment = day.at(face_.position);
  for (const MeetingPlace& place : day.places) {
    const Calendar there(place.city.zone, calendar.locale());
    const Availability state = place.quarters[static_cast<std::size_t>(face_.position)];
    const int days = cityTime(there, calendar, moment).dayDifference;
    const QString words = stateText(state);
    rows.push_back({.id = cities_.idOf(place.city),
                    .name = toQString(place.city.name),
                    .time = toQString(shortTime(there, moment)),
                    .detail = days > 0   ? tr("next day, %1").arg(words)
                              : days < 0 ? tr("day before, %1").arg(words)
                                         : words,
                    .isOwn = rows.empty(),
                    .isWorking = state == Availability::working,
                    .spans = spansOf(place.quarters)});
  }
  rows_.setRows(rows);
}

Instant MeetingModel::renew(const Calendar& calendar, Instant now) {
  // The user is always there.
  std::vector<City> all{{calendar.zone(), cityName(calendar.zone(), calendar.locale())}};
  all.insert(all.end(), cities_.cities().begin(), cities_.cities().end());
  WorkingHours hours{.from = static_cast<int>(valueOf(seams_.defaults, setting::meetingFromHour)),
                     .to = static_cast<int>(valueOf(seams_.defaults, setting::meetingToHour))};
  hours.to = std::max(hours.to, hours.from + 1);
  const MeetingDay day =
      ownDay_ ? meetingDay(all, hours, calendar, *ownDay_) : nextMeetingDay(all, hours, calendar, now);
  day_ = dateOf(calendar, day.begins);

  const Instant end = day.at(day.quarters);
  const bool isToday = day.begins <= now && now < end;
  const int count = static_cast<int>(day.places.size());
  const int present = static_cast<int>((now - day.begins) / MeetingDay::quarter);
  const int usual = day.best ? day.best->from : isToday ? present : hours.from * 4;
  MeetingFace face{.day = toQString(formattedDate(calendar, day.begins, "EEEEMMMMd")),
                   .shortDay = isToday ? QString() : toQString(formattedDate(calendar, day.begins, "EEE")),
                   .note = !day.best        ? tr("No common hours")
                           : day.isForAll() ? tr("All %1 at work").arg(count)
                                            : tr("%1 of %2 at work").arg(day.best->places).arg(count),
                   .position = std::clamp(ownPosition_.value_or(usual), 0, day.quarters - 1),
                   .positions = day.quarters};
  face.moment = toQString(shortTime(calendar, day.at(face.position)));
  if (day.best) {
    face.begins = toQString(shortTime(calendar, day.at(day.best->from)));
    face.best = tr("%1 – %2").arg(face.begins, toQString(shortTime(calendar, day.at(day.best->to))));
  }
  if (isToday) face.now = static_cast<qreal>(present) / day.quarters;
  const bool differs = replaced(face_, std::move(face));
  makeRows(day, calendar);
  if (differs) Q_EMIT changed();
  return std::min(nextTurn<std::chrono::duration<std::int64_t, std::ratio<900>>>(now), calendar.startOfDay(now, 1));
}

}  // namespace ambrel
