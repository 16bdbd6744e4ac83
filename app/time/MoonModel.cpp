#include "app/time/MoonModel.h"

#include <cmath>

#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"
#include "core/time/Moon.h"
#include "core/time/Weeks.h"

namespace ambrel {

Instant MoonModel::renew(const Calendar& calendar, Instant now) {
  constexpr int shown = 8;
  const auto events = nextMoonEvents(now, shown);
  std::vector<MoonRow> rows;
  for (const MoonEvent& event : events)
    rows.push_back({.id = toQString(iso8601(event.at)),
                    .title = toQString(title(event.quarter)),
                    .figure = toQString(formattedDate(calendar, event.at, "EEEdMMMjmm"))});
  events_.setRows(rows);

  const MoonEvent& next = events.front();
  const MoonQuarter last = lastMoonEvent(now).quarter;
  const int days = daysBetween(dateOf(calendar, now), dateOf(calendar, next.at));
  const QString name = toQString(title(next.quarter));
  MoonFace face{.name = toQString(moonName(calendar, now)),
                .next = days == 0   ? tr("%1 today").arg(name)
                        : days == 1 ? tr("%1 tomorrow").arg(name)
                                    : tr("%1 in %2 days").arg(name).arg(days),
                .percent = static_cast<int>(std::lround(100 * moonIllumination(now))),
                .isWaxing = last == MoonQuarter::newMoon || last == MoonQuarter::firstQuarter};
  face.lit = tr("%1 % lit").arg(face.percent);
  if (replaced(face_, std::move(face))) Q_EMIT changed();
  // A percent takes the light three hours and more.
  return std::min({nextTurn<std::chrono::hours>(now), next.at, calendar.startOfDay(now, 1)});
}

}  // namespace ambrel
