#include "app/weather/WeatherModel.h"

#include <algorithm>
#include <utility>

#include "app/base/StoredValue.h"

namespace ambrel {
namespace {

constexpr std::chrono::milliseconds typingPause{300};
constexpr int fewestLetters = 2;

std::string_view bytesOf(const QByteArray& body) { return {body.constData(), static_cast<std::size_t>(body.size())}; }

}  // namespace

WeatherModel::WeatherModel(Setting setting, WeatherService& service, UserDefaults& defaults, PresentCalendar calendar,
                           std::function<Instant()> now, QObject* parent)
    : TimedModel(parent),
      setting_(std::move(setting)),
      service_(service),
      defaults_(defaults),
      calendar_(std::move(calendar)),
      now_(std::move(now)),
      place_(setting_.defaultPlace),
      usesFahrenheit_(valueOf(defaults, setting::weatherFahrenheit)),
      schedule_(service.jitter()) {
  loadPlace();
  publish(now_());
}

void WeatherModel::loadPlace() {
  place_ = setting_.defaultPlace;
  if (const auto stored = defaults_.data(setting_.placeKey))
    if (auto place = decodedPlace(*stored)) place_ = std::move(*place);
  reading_.scale = valueOf(defaults_, setting::airQualityScale);
}

void WeatherModel::reload(bool hasNewHosts) {
  const Place before = place_;
  loadPlace();
  const bool usedFahrenheit = std::exchange(usesFahrenheit_, valueOf(defaults_, setting::weatherFahrenheit));
  if (place_ != before || hasNewHosts) return usePlace();
  const Instant now = now_();
  if (usesFahrenheit_ != usedFahrenheit) refresh(now);
  publish(now);
}

void WeatherModel::setWanted(bool isWanted, Instant now) {
  if (isWanted == schedule_.isWanted()) return;
  send(schedule_.setWanted(isWanted, now));
  publish(now);
}

void WeatherModel::refresh(Instant now) {
  send(schedule_.refresh(now));
  announceDue();
}

void WeatherModel::setOnline(bool isOnline, Instant now) {
  if (isOnline == reading_.isOnline) return;
  reading_.isOnline = isOnline;
  if (isOnline) schedule_.networkReturned(now);
  publish(now);
}

void WeatherModel::send(WeatherSchedule::Requests requests) {
  if (requests.forecast) askForecast();
  if (requests.airQuality) askAirQuality();
}

void WeatherModel::askForecast() {
  service_.get(WeatherService::Kind::forecast, forecastRequest(place_, usesFahrenheit_), this,
               [this, asked = ++generation_, uses = usesFahrenheit_](const auto& body, const WeatherProblem& problem) {
                 if (asked == generation_) forecastAnswered(body, uses, problem);
               });
}

void WeatherModel::forecastAnswered(const std::optional<QByteArray>& body, bool usedFahrenheit,
                                    const WeatherProblem& problem) {
  const Instant now = now_();
  auto decoded = body ? decodeForecast(bytesOf(*body)) : Decoded<Forecast>{};
  if (decoded.value) {
    schedule_.forecastAnswered();
    reading_.forecast = std::move(decoded.value);
    reading_.failure.reset();
    reading_.usesFahrenheit = usedFahrenheit;
    reading_.updatedAt = now;
  } else {
    schedule_.forecastFailed(problem.kind, problem.wait, now);
    reading_.failure = problem.kind;
  }
  publish(now);
}

void WeatherModel::askAirQuality() {
  service_.get(WeatherService::Kind::airQuality, airQualityRequest(place_), this,
               [this, asked = place_](const auto& body, const WeatherProblem& problem) {
                 if (asked == place_) airQualityAnswered(body, problem);
               });
}

void WeatherModel::airQualityAnswered(const std::optional<QByteArray>& body, const WeatherProblem& problem) {
  const Instant now = now_();
  auto decoded = body ? decodeAirQuality(bytesOf(*body)) : Decoded<AirQuality>{};
  if (decoded.value) {
    schedule_.airQualityAnswered(now);
    reading_.airQuality = std::move(decoded.value);
    reading_.airUpdatedAt = now;
  } else {
    schedule_.airQualityFailed(problem.kind, problem.wait, now);
  }
  publish(now);
}

std::optional<Instant> WeatherModel::due() const {
  const auto first = schedule_.due();
  return first && searchAt_ ? std::min(*first, *searchAt_) : first ? first : searchAt_;
}

void WeatherModel::tick(Instant now) {
  if (searchAt_ && now >= *searchAt_) askPlaces();
  send(schedule_.tick(now));
  publish(now);
}

void WeatherModel::slept(Seconds, Instant now) {
  schedule_.slept(now);
  publish(now);
}

void WeatherModel::clockMoved(Seconds by, Instant now) {
  schedule_.clockMoved(by);
  for (auto* time : {&searchAt_, &reading_.updatedAt, &reading_.airUpdatedAt})
    if (*time) *time = advanced(**time, by);
  publish(now);
}

void WeatherModel::choose(int result) {
  if (result >= 0 && static_cast<std::size_t>(result) < found_.size())
    choose(Place(found_[static_cast<std::size_t>(result)].place));
}

void WeatherModel::chooseFirst() {
  takesFirst_ = searchAt_ || isSearching_ ? storeLater(defaults_, setting_.placeKey) : nullptr;
  if (searchAt_) askPlaces();
  if (!takesFirst_ && searchNote_.isEmpty()) choose(0);
}

void WeatherModel::choose(const Place& place) { choose(place, storeLater(defaults_, setting_.placeKey)); }

void WeatherModel::choose(const Place& place, const UserDefaults::Keeper& keep) {
  keep({DefaultsData{encodedPlace(place)}});
  loadPlace();
  // It may be that of another profile by now.
  if (place_ != place) return;
  usePlace();
  Q_EMIT placeChosen();
}

void WeatherModel::usePlace() {
  // The old place's weather is not the new one's, and neither is what is still on its way.
  ++generation_;
  reading_ = {.isOnline = reading_.isOnline, .scale = reading_.scale};
  const Instant now = now_();
  send(schedule_.restart(now));
  publish(now);
}

void WeatherModel::search(const QString& text) {
  searchText_ = text.trimmed();
  ++searchGeneration_;
  isSearching_ = false;
  takesFirst_ = nullptr;
  if (searchText_.size() >= fewestLetters) {
    searchAt_ = now_() + typingPause;
    // The present results stay while the user types on.
    if (found_.empty()) searchNote_ = tr("Searching…");
  } else {
    searchAt_.reset();
    found_.clear();
    searchNote_ = searchText_.isEmpty() ? QString() : tr("Type at least two letters");
  }
  Q_EMIT searchChanged();
  announceDue();
}

void WeatherModel::askPlaces() {
  searchAt_.reset();
  isSearching_ = true;
  service_.get(WeatherService::Kind::geocoding, geocodingRequest(searchText_.toStdString()), this,
               [this, asked = searchGeneration_](const auto& body, const WeatherProblem&) {
                 if (asked == searchGeneration_) placesAnswered(body);
               });
}

void WeatherModel::placesAnswered(const std::optional<QByteArray>& body) {
  isSearching_ = false;
  auto decoded = body ? decodePlaces(bytesOf(*body)) : Decoded<std::vector<FoundPlace>>{};
  if (decoded.value) {
    found_ = std::move(*decoded.value);
    searchNote_ = found_.empty() ? tr("No place of that name") : QString();
  } else {
    searchNote_ = tr("The search does not answer");
  }
  Q_EMIT searchChanged();
  if (const auto keep = std::exchange(takesFirst_, nullptr); keep && !found_.empty() && searchNote_.isEmpty())
    choose(Place(found_.front().place), keep);
}

QVariantList WeatherModel::searchResults() const {
  QVariantList list;
  for (const FoundPlace& found : found_)
    list.append(QVariantMap{{QStringLiteral("name"), QString::fromStdString(found.place.name)},
                            {QStringLiteral("detail"), QString::fromStdString(regionLabel(found))}});
  return list;
}

void WeatherModel::update() { publish(now_()); }

void WeatherModel::publish(Instant now) {
  WeatherTexts texts = weatherTexts(place_, reading_, calendar_, now);
  if (texts != texts_) {
    texts_ = std::move(texts);
    Q_EMIT changed();
  }
  announceDue();
}

}  // namespace ambrel
