// The weather of two places: its panels, and when it is asked for.

#include <algorithm>

#include "app/AppDelegate.h"
#include "app/base/QmlObjects.h"

namespace ambrel {
namespace {

constexpr auto mainTiles = {"weather", "hourly",     "sun",           "wind",     "rainSoon",
                            "uvIndex", "airQuality", "dailyForecast", "feelsLike"};
constexpr const char* secondTile = "secondCity";
constexpr QSize panelSize{340, 420};

}  // namespace

void AppDelegate::makeWeather() {
  weather_ = std::make_unique<WeatherModels>(defaults_, surroundings_.calendar, surroundings_.now, due_);
  keep({weather_.get()});
  const auto look = [this] {
    const auto isOnBar = [this](const char* widget) { return model_.isOnBar(QString::fromLatin1(widget)); };
    weather_->setWanted(std::any_of(mainTiles.begin(), mainTiles.end(), isOnBar), isOnBar(secondTile));
  };
  connect(&model_, &AppModel::activeProfileChanged, this, look);
  look();
}

void AppDelegate::addWeatherPanels() {
  addTilePanel(mainTiles, "Weather/WeatherSettings.qml", {{QStringLiteral("weather"), toVariant(*weather_->main())}},
               panelSize);
  DockPopoverController& second =
      addTilePanel({}, "Weather/WeatherSettings.qml", {{QStringLiteral("hasScale"), false}}, panelSize);
  // The second city comes to be with its tile.
  context_->setClickAction(QString::fromLatin1(secondTile), [this, &second](const QString& item) {
    second.setProperty(QStringLiteral("weather"), toVariant(*weather_->second()));
    toggle(&second, item);
  });
}

}  // namespace ambrel
