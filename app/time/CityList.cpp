#include "app/time/CityList.h"

#include <algorithm>
#include <utility>

#include "app/base/StoredValue.h"
#include "core/base/LocalText.h"

namespace ambrel {

CityList::CityList(TimeSeams seams, Load load, Save save, QObject* parent)
    : QObject(parent), seams_(std::move(seams)), load_(std::move(load)), save_(std::move(save)) {}

const std::vector<City>& CityList::cities() {
  if (!isLoaded_) {
    isLoaded_ = true;
    cities_ = load_();
    cities_.resize(std::min(cities_.size(), mostCities));
  }
  return cities_;
}

void CityList::reload() {
  const std::vector<City> before = std::exchange(cities_, {});
  if (!std::exchange(isLoaded_, false)) return;
  if (cities() != before) Q_EMIT changed();
}

QString CityList::idOf(const City& city) const { return toQString(city.zone + ' ' + city.name); }

std::vector<City>::const_iterator CityList::find(const QString& rowId) {
  return std::ranges::find(cities(), rowId, [&](const City& city) { return idOf(city); });
}

void CityList::take(std::vector<City> next) {
  cities_ = std::move(next);
  save_(cities_);
  Q_EMIT changed();
  search(text_);
}

void CityList::search(const QString& text) {
  constexpr std::size_t most = 6;
  text_ = text;
  const Calendar calendar = seams_.calendar();
  if (!index_ && !text.trimmed().isEmpty()) index_ = std::make_unique<CityIndex>(calendar.locale());
  found_ = index_ ? index_->search(text.toStdString(), most) : std::vector<CityIndex::Found>();
  std::vector<FoundCityRow> rows;
  for (const auto& [city, country] : found_) {
    const QString time = toQString(shortTime(Calendar(city.zone, calendar.locale()), seams_.now()));
    rows.push_back({.id = idOf(city),
                    .name = toQString(city.name),
                    .detail = country.empty() ? time : toQString(country) + QStringLiteral(", ") + time,
                    .isChosen = std::ranges::find(cities(), city) != cities().end()});
  }
  results_.setRows(rows);
  note_ = rows.empty() && !text.trimmed().isEmpty() ? tr("No city or country of that name") : QString();
  Q_EMIT searched();
}

void CityList::add(const QString& rowId) {
  const auto found = std::ranges::find(found_, rowId, [&](const auto& one) { return idOf(one.city); });
  if (found == found_.end() || isFull() || find(rowId) != cities_.end()) return;
  std::vector<City> next = cities_;
  next.push_back(found->city);
  take(std::move(next));
}

void CityList::addFirst() {
  if (!found_.empty()) add(idOf(found_.front().city));
}

void CityList::remove(const QString& rowId) {
  const auto at = find(rowId);
  if (at == cities_.end()) return;
  std::vector<City> next = cities_;
  next.erase(next.begin() + (at - cities_.begin()));
  take(std::move(next));
}

void CityList::moveUp(const QString& rowId) {
  const auto at = find(rowId) - cities().cbegin();
  if (at == 0 || at == std::ssize(cities_)) return;
  std::vector<City> next = cities_;
  std::swap(next[static_cast<std::size_t>(at)], next[static_cast<std::size_t>(at - 1)]);
  take(std::move(next));
}

}  // namespace ambrel
