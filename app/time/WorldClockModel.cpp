#include "app/time/WorldClockModel.h"

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

// "+8 h", "−3:30 h"
QString differenceText(std::chrono::minutes ahead) {
  const auto apart = std::chrono::abs(ahead).count();
  if (apart == 0) return QObject::tr("same time");
  const QString sign = ahead.count() > 0 ? QStringLiteral("+") : QStringLiteral("−");
  const QString hours = QString::number(apart / 60);
  return QObject::tr("%1 h").arg(
      sign + (apart % 60 == 0 ? hours : QStringLiteral("%1:%2").arg(hours).arg(apart % 60, 2, 10, QChar(u'0'))));
}

}  // namespace

CityTimeRow cityTimeRow(const City& city, const Calendar& own, Instant now) {
  const Calendar there(city.zone, own.locale());
  const CityTime time = cityTime(there, own, now);
  CityTimeRow row{.name = toQString(city.name),
                  .time = toQString(shortTime(there, now)),
                  .difference = differenceText(time.ahead),
                  .day = time.dayDifference > 0   ? QObject::tr("Tomorrow")
                         : time.dayDifference < 0 ? QObject::tr("Yesterday")
                                                  : QString(),
                  .country = toQString(countryName(city.zone, own.locale())),
                  .isNight = time.isNight};
  row.detail = row.day.isEmpty() ? row.difference : row.day + QStringLiteral(", ") + row.difference;
  return row;
}

WorldClockModel::WorldClockModel(TimeSeams seams, QObject* parent)
    : TimeModel(seams, parent),
      cities_(
          seams,
          [this] {
            const Calendar calendar = seams_.calendar();
            const auto stored = seams_.defaults.strings(key);
            return stored ? citiesOf(*stored, calendar.locale()) : usualCities(calendar);
          },
          [this](const std::vector<City>& cities) {
            const Calendar calendar = seams_.calendar();
            DefaultsArray stored;
            for (const City& city : cities) stored.push_back({storedForm(city, calendar.locale())});
            store(seams_.defaults, key, DefaultsValue{std::move(stored)});
          }) {
  keep({&cities_});
  connect(&cities_, &CityList::changed, this, [this] { update(); });
}

Instant WorldClockModel::renew(const Calendar& calendar, Instant now) {
  std::vector<CityTimeRow> rows;
  QStringList words;
  for (const City& city : cities_.cities()) {
    rows.push_back(cityTimeRow(city, calendar, now));
    rows.back().id = cities_.idOf(city);
    words << rows.back().name + QStringLiteral(", ") + rows.back().time + QStringLiteral(", ") + rows.back().detail;
  }
  rows_.setRows(rows);
  if (replaced(summary_, words.join(QStringLiteral("; ")))) Q_EMIT changed();
  return nextTurn<std::chrono::minutes>(now);
}

}  // namespace ambrel
