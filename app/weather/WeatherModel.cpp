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
      usesFahrenheit_(valueOf(defaults, setting::weatherFahrenheit)) {
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
  const bool uses = valueOf(defaults_, setting::weatherFahrenheit);
  if (place_ != before || hasNewHosts) {
    usesFahrenheit_ = uses;
    Q_EMIT usesFahrenheitChanged();
    usePlace();
  } else {
    applyUnit(uses, now_());
    publish(now_());
  }
}

void WeatherModel::setWanted(bool isWanted, Instant now) {
  if (isWanted == isWanted_) return;
  isWanted_ = isWanted;
  if (isWanted_ && (!forecastAt_ || *forecastAt_ <= now)) refresh(now);
  publish(now);
}

void WeatherModel::refresh(Instant now) {
  if (isWanted_) {
    askForecast(now);
    const bool isPutOff = airFailures_.count > 0 && airAt_ && *airAt_ > now;
    if (!isPutOff && isAirQualityDue(reading_.airQuality, airQualityFetchedAt_, now)) askAirQuality(now);
  } else {
    forecastAt_ = now;
  }
  announceDue();
}

void WeatherModel::setOnline(bool isOnline, Instant now) {
  if (isOnline == isOnline_) return;
  isOnline_ = isOnline;
  if (isOnline_) {
    const auto waits = [](const Failures& failures) {
      return failures.count > 0 && failures.last == WeatherFailure::unreached;
    };
    if (waits(forecastFailures_)) forecastAt_ = now;
    if (waits(airFailures_)) airAt_ = now;
  }
  publish(now);
}

Seconds WeatherModel::failed(Failures& failures, const WeatherProblem& problem, bool hasAnswer) const {
  // A server that was not reached and one that refuses are different stories.
  failures.count = failures.last == problem.kind ? failures.count + 1 : 1;
  failures.last = problem.kind;
  return service_.spread(std::max<Seconds>(problem.wait, retryPause(failures.count, failures.last, hasAnswer)));
}

void WeatherModel::askForecast(Instant now) {
  forecastAt_ = advanced(now, service_.spread(weatherInterval));
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
    forecastFailures_ = {};
    reading_.forecast = std::move(decoded.value);
    reading_.usesFahrenheit = usedFahrenheit;
    reading_.updatedAt = now;
  } else {
    forecastAt_ = advanced(now, failed(forecastFailures_, problem, reading_.forecast.has_value()));
  }
  publish(now);
}

void WeatherModel::askAirQuality(Instant now) {
  airQualityFetchedAt_ = now;
  airAt_.reset();
  service_.get(WeatherService::Kind::airQuality, airQualityRequest(place_), this,
               [this, asked = place_](const auto& body, const WeatherProblem& problem) {
                 if (asked == place_) airQualityAnswered(body, problem);
               });
}

void WeatherModel::airQualityAnswered(const std::optional<QByteArray>& body, const WeatherProblem& problem) {
  const Instant now = now_();
  auto decoded = body ? decodeAirQuality(bytesOf(*body)) : Decoded<AirQuality>{};
  Seconds pause = service_.spread(weatherInterval);
  if (decoded.value) {
    airFailures_ = {};
    reading_.airQuality = std::move(decoded.value);
    reading_.airUpdatedAt = now;
  } else {
    pause = failed(airFailures_, problem, reading_.airQuality.has_value());
  }
  airAt_ = advanced(airQualityFetchedAt_.value_or(now), pause);
  publish(now);
}

std::optional<Instant> WeatherModel::due() const {
  std::optional<Instant> first = searchAt_;
  const auto take = [&](const std::optional<Instant>& time) {
    if (time && (!first || *time < *first)) first = time;
  };
  // What came due meanwhile is so as soon as it is wanted.
  if (isWanted_) {
    take(forecastAt_);
    take(airAt_);
  }
  return first;
}

void WeatherModel::tick(Instant now) {
  if (searchAt_ && now >= *searchAt_) askPlaces();
  if (isWanted_ && forecastAt_ && now >= *forecastAt_) refresh(now);
  if (isWanted_ && airAt_ && now >= *airAt_) {
    airAt_.reset();
    if (isAirQualityDue(reading_.airQuality, airQualityFetchedAt_, now)) {
      askAirQuality(now);
    } else {
      airAt_ = airQualityDueAt(reading_.airQuality, airQualityFetchedAt_.value_or(now));
    }
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
  store(defaults_, setting::weatherFahrenheit.key, uses);
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
  store(defaults_, setting::airQualityScale.key, DefaultsValue{std::string(nameOf(*scale))});
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
  usePlace();
  Q_EMIT placeChosen();
}

void WeatherModel::usePlace() {
  // The old place's weather is not the new one's, and neither is what is still on its way.
  ++generation_;
  reading_.forecast.reset();
  reading_.updatedAt.reset();
  reading_.airQuality.reset();
  reading_.airUpdatedAt.reset();
  airQualityFetchedAt_.reset();
  airAt_.reset();
  forecastFailures_ = airFailures_ = {};
  const Instant now = now_();
  refresh(now);
  publish(now);
}

void WeatherModel::search(const QString& text) {
  searchText_ = text.trimmed();
  ++searchGeneration_;
  isSearching_ = takesFirst_ = false;
  if (searchText_.size() >= fewestLetters) {
    searchAt_ = now_() + typingPause;
    // The present results stay meanwhile, for those who type on.
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
  if (!reading_.forecast && forecastFailures_.count > 0)
    problem = !isOnline_ && forecastFailures_.last == WeatherFailure::unreached ? tr("Offline") : tr("No answer yet");
  else if (!reading_.forecast)
    problem = tr("Waiting for data");
  if (texts != texts_ || problem != problem_) {
    texts_ = std::move(texts);
    problem_ = std::move(problem);
    Q_EMIT changed();
  }
  announceDue();
}

}  // namespace ambrel
