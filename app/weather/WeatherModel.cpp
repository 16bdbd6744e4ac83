#include "app/weather/WeatherModel.h"

#include <algorithm>
#include <utility>

#include "app/base/StoredValue.h"

namespace ambrel {
namespace {

constexpr std::chrono::milliseconds typingPause{300};
constexpr int fewestLetters = 2;
// Networks need a moment to come back after a sleep.
constexpr std::chrono::seconds wakingPause{10};

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
      usesFahrenheit_(defaults.boolean("weatherFahrenheit").value_or(false)) {
  if (const auto stored = defaults_.data(setting_.placeKey))
    if (auto place = decodedPlace(*stored)) place_ = std::move(*place);
  if (const auto name = defaults_.string("airQualityScale"))
    reading_.scale = fromName<AirQualityScale>(*name).value_or(AirQualityScale::us);
  publish(now_());
}

void WeatherModel::setWanted(bool isWanted, Instant now) {
  if (isWanted == isWanted_) return;
  isWanted_ = isWanted;
  if (isWanted_ && (!forecastAt_ || *forecastAt_ <= now)) refresh(now);
  publish(now);
}

void WeatherModel::refresh(Instant now) {
  if (mayAsk()) {
    askForecast(now);
    if (isAirQualityDue(reading_.airQuality, airQualityFetchedAt_, now)) askAirQuality(now);
  } else {
    forecastAt_ = now;
  }
  announceDue();
}

void WeatherModel::setOnline(bool isOnline, Instant now) {
  if (isOnline == isOnline_) return;
  isOnline_ = isOnline;
  publish(now);
}

void WeatherModel::askForecast(Instant now) {
  forecastAt_ = now + weatherInterval;
  service_.get(WeatherService::Kind::forecast, forecastRequest(place_, usesFahrenheit_), this,
               [this, asked = ++generation_, uses = usesFahrenheit_](const auto& body, const QString& problem) {
                 if (asked == generation_) forecastAnswered(body, uses, problem);
               });
}

void WeatherModel::forecastAnswered(const std::optional<QByteArray>& body, bool usedFahrenheit,
                                    const QString& problem) {
  const Instant now = now_();
  auto decoded = body ? decodeForecast(bytesOf(*body)) : Decoded<Forecast>{std::nullopt, problem.toStdString()};
  if (decoded.value) {
    forecastFailures_ = 0;
    reading_.forecast = std::move(decoded.value);
    reading_.usesFahrenheit = usedFahrenheit;
    reading_.updatedAt = now;
  } else {
    ++forecastFailures_;
    // The regular request stands; only with nothing to show the next try comes sooner.
    forecastAt_ = std::min(forecastAt_.value_or(now + weatherInterval),
                           Instant(now + retryPause(forecastFailures_, reading_.forecast.has_value())));
  }
  publish(now);
}

void WeatherModel::askAirQuality(Instant now) {
  airQualityFetchedAt_ = now;
  airAt_.reset();
  service_.get(WeatherService::Kind::airQuality, airQualityRequest(place_), this,
               [this, asked = place_](const auto& body, const QString& problem) {
                 if (asked == place_) airQualityAnswered(body, problem);
               });
}

void WeatherModel::airQualityAnswered(const std::optional<QByteArray>& body, const QString& problem) {
  const Instant now = now_();
  auto decoded = body ? decodeAirQuality(bytesOf(*body)) : Decoded<AirQuality>{std::nullopt, problem.toStdString()};
  if (decoded.value) {
    airFailures_ = 0;
    reading_.airQuality = std::move(decoded.value);
    reading_.airUpdatedAt = now;
  } else {
    ++airFailures_;
  }
  airAt_ = airQualityFetchedAt_.value_or(now) + retryPause(airFailures_, reading_.airQuality.has_value());
  publish(now);
}

std::optional<Instant> WeatherModel::due() const {
  std::optional<Instant> first = searchAt_;
  const auto take = [&](const std::optional<Instant>& time) {
    if (time && (!first || *time < *first)) first = time;
  };
  // What came due meanwhile is so as soon as it may be asked for.
  if (mayAsk()) {
    take(forecastAt_);
    take(airAt_);
  }
  return first;
}

void WeatherModel::tick(Instant now) {
  if (searchAt_ && now >= *searchAt_) askPlaces();
  if (mayAsk() && forecastAt_ && now >= *forecastAt_) refresh(now);
  if (mayAsk() && airAt_ && now >= *airAt_) {
    airAt_.reset();
    if (isAirQualityDue(reading_.airQuality, airQualityFetchedAt_, now)) askAirQuality(now);
  }
  publish(now);
}

void WeatherModel::slept(Seconds, Instant now) {
  const auto putOff = [&](std::optional<Instant>& time) {
    if (time) time = std::max<Instant>(*time, now + wakingPause);
  };
  putOff(forecastAt_);
  putOff(airAt_);
  publish(now);
}

void WeatherModel::clockMoved(Seconds by, Instant now) {
  for (auto* time :
       {&forecastAt_, &airAt_, &airQualityFetchedAt_, &searchAt_, &reading_.updatedAt, &reading_.airUpdatedAt})
    if (*time) *time = advanced(**time, by);
  publish(now);
}

void WeatherModel::setUsesFahrenheit(bool uses) {
  if (uses == usesFahrenheit_) return;
  store(defaults_, "weatherFahrenheit", uses);
  applyUnit(uses, now_());
}

void WeatherModel::applyUnit(bool uses, Instant now) {
  if (uses == usesFahrenheit_) return;
  usesFahrenheit_ = uses;
  Q_EMIT usesFahrenheitChanged();
  refresh(now);
}

void WeatherModel::followUnitOf(WeatherModel& other) {
  connect(&other, &WeatherModel::usesFahrenheitChanged, this,
          [this, &other] { applyUnit(other.usesFahrenheit(), now_()); });
}

QString WeatherModel::airQualityScale() const { return toQString(nameOf(reading_.scale)); }

void WeatherModel::setAirQualityScale(const QString& name) {
  const auto scale = fromName<AirQualityScale>(name.toStdString());
  if (!scale || *scale == reading_.scale) return;
  reading_.scale = *scale;
  store(defaults_, "airQualityScale", DefaultsValue{std::string(nameOf(*scale))});
  publish(now_());
}

void WeatherModel::choose(int result) {
  if (result >= 0 && static_cast<std::size_t>(result) < found_.size())
    choose(Place(found_[static_cast<std::size_t>(result)].place));
}

void WeatherModel::chooseFirst() {
  takesFirst_ = searchAt_ || isSearching_;
  if (searchAt_) askPlaces();
  if (!takesFirst_ && searchNote_.isEmpty()) choose(0);
}

void WeatherModel::choose(const Place& place) {
  place_ = place;
  store(defaults_, setting_.placeKey, DefaultsValue{DefaultsData{encodedPlace(place_)}});
  // The old place's weather is not the new one's, and neither is what is still on its way.
  ++generation_;
  reading_.forecast.reset();
  reading_.updatedAt.reset();
  reading_.airQuality.reset();
  reading_.airUpdatedAt.reset();
  airQualityFetchedAt_.reset();
  airAt_.reset();
  forecastFailures_ = airFailures_ = 0;
  const Instant now = now_();
  refresh(now);
  publish(now);
  Q_EMIT placeChosen();
}

void WeatherModel::search(const QString& text) {
  searchText_ = text.trimmed();
  ++searchGeneration_;
  isSearching_ = takesFirst_ = false;
  if (searchText_.size() >= fewestLetters) {
    searchAt_ = now_() + typingPause;
    // What stands there meanwhile stays, for those who type on.
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
               [this, asked = searchGeneration_](const auto& body, const QString& problem) {
                 if (asked == searchGeneration_) placesAnswered(body, problem);
               });
}

void WeatherModel::placesAnswered(const std::optional<QByteArray>& body, const QString& problem) {
  isSearching_ = false;
  auto decoded =
      body ? decodePlaces(bytesOf(*body)) : Decoded<std::vector<FoundPlace>>{std::nullopt, problem.toStdString()};
  if (decoded.value) {
    found_ = std::move(*decoded.value);
    searchNote_ = found_.empty() ? tr("No place of that name") : QString();
  } else {
    searchNote_ = tr("The search does not answer");
  }
  Q_EMIT searchChanged();
  if (std::exchange(takesFirst_, false) && searchNote_.isEmpty()) choose(0);
}

QVariantList WeatherModel::searchResults() const {
  QVariantList list;
  for (const FoundPlace& found : found_)
    list.append(QVariantMap{{QStringLiteral("name"), QString::fromStdString(found.place.name)},
                            {QStringLiteral("detail"), QString::fromStdString(regionLabel(found))}});
  return list;
}

void WeatherModel::update() { publish(now_()); }

QString WeatherModel::problem() const { return problem_; }

void WeatherModel::publish(Instant now) {
  WeatherTexts texts = weatherTexts(place_, reading_, calendar_, now);
  QString problem;
  if (!reading_.forecast)
    problem = !isOnline_ ? tr("Offline") : forecastFailures_ > 0 ? tr("No answer yet") : tr("Waiting for data");
  if (texts != texts_ || problem != problem_) {
    texts_ = std::move(texts);
    problem_ = std::move(problem);
    Q_EMIT changed();
  }
  announceDue();
}

}  // namespace ambrel
