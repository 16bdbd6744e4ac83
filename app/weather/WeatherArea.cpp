#include "app/weather/WeatherArea.h"

#include <QQmlEngine>
#include <algorithm>

namespace ambrel {

WeatherArea::WeatherArea(Fetcher& fetcher, UserDefaults& defaults, PresentCalendar calendar,
                         std::function<Instant()> now, DueTimer& due, QObject* parent)
    : Area(QStringLiteral("Weather"), parent),
      fetcher_(fetcher),
      defaults_(defaults),
      calendar_(std::move(calendar)),
      now_(std::move(now)),
      due_(due),
      service_(fetcher, weatherHosts(defaults)),
      main_(WeatherModel::mainSetting(), service_, defaults_, calendar_, now_) {
  add(main_);
}

void WeatherArea::add(WeatherModel& model) {
  QQmlEngine::setObjectOwnership(&model, QQmlEngine::CppOwnership);
  due_.add(model);
}

WeatherModel* WeatherArea::second() {
  if (!second_) {
    second_ = std::make_unique<WeatherModel>(WeatherModel::secondCitySetting(), service_, defaults_, calendar_, now_);
    if (followsNetwork_) second_->setOnline(fetcher_.isOnline(), now_());
    add(*second_);
  }
  return second_.get();
}

void WeatherArea::widgetsChanged(const std::set<DockWidget>& onBar, bool /*areSeen*/, Instant /*now*/) {
  const bool isMainWanted = std::any_of(onBar.begin(), onBar.end(), [](DockWidget widget) {
    return group(widget) == WidgetGroup::weather && widget != DockWidget::secondCity;
  });
  setWanted(isMainWanted, onBar.contains(DockWidget::secondCity));
}

void WeatherArea::setWanted(bool isMainWanted, bool isSecondWanted) {
  if (isMainWanted || isSecondWanted) watchNetwork();
  main_.setWanted(isMainWanted, now_());
  if (second_ || isSecondWanted) second()->setWanted(isSecondWanted, now_());
}

void WeatherArea::defaultsChanged(const std::set<std::string>& keys) {
  const bool hasNewHosts = std::any_of(keys.begin(), keys.end(), [](const std::string& key) {
    return key.starts_with("weather") && key.ends_with("URL");
  });
  if (hasNewHosts) service_.setHosts(weatherHosts(defaults_));
  main_.reload(hasNewHosts);
  if (second_) second_->reload(hasNewHosts);
}

// The network service is not started until the weather is shown.
void WeatherArea::watchNetwork() {
  if (std::exchange(followsNetwork_, true)) return;
  const auto tell = [this](bool isOnline) {
    main_.setOnline(isOnline, now_());
    if (second_) second_->setOnline(isOnline, now_());
  };
  connect(&fetcher_, &Fetcher::onlineChanged, this, tell);
  tell(fetcher_.isOnline());
}

}  // namespace ambrel
