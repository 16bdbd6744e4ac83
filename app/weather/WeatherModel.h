#pragma once
// The weather of one place: asked for at its times, kept while there is no answer.

#include <QString>
#include <QVariantList>
#include <functional>

#include "app/base/TimedModel.h"
#include "app/weather/WeatherService.h"
#include "app/weather/WeatherTexts.h"
#include "core/base/PresentCalendar.h"
#include "core/settings.h"

namespace ambrel {

class WeatherModel : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::WeatherTexts texts READ texts NOTIFY changed FINAL)
  // {"name": "Springfield", "detail": "Illinois, United States"}, to be chosen by their index.
  Q_PROPERTY(QVariantList searchResults READ searchResults NOTIFY searchChanged FINAL)
  // Why there are none, or why they are not what is typed: "Type at least two letters", "Searching…", "No place of that
  // name", "The search does not answer"; empty when they are.
  Q_PROPERTY(QString searchNote READ searchNote NOTIFY searchChanged FINAL)

 public:
  using Place = WeatherPlace;
  using Day = WeatherDay;

  struct Setting {
    std::string placeKey;
    Place defaultPlace;
  };
  static Setting mainSetting() { return {"weatherPlace", ambrel::defaultPlace()}; }
  static Setting secondCitySetting() { return {"secondCityPlace", defaultSecondPlace()}; }

  WeatherModel(Setting setting, WeatherService& service, UserDefaults& defaults, PresentCalendar calendar,
               std::function<Instant()> now, QObject* parent = nullptr);

  // Whether this place's weather is shown. Requests go out only then: at once if one is due.
  void setWanted(bool isWanted, Instant now);
  // Asks for the forecast and, if due, for the air quality. While they are not wanted, that waits.
  void refresh(Instant now);
  // What the desktop says about the network. It may be wrong or out of date, so requests go out in any case; when the
  // network comes back, those that have failed are tried again sooner.
  void setOnline(bool isOnline, Instant now);
  // The stored place or a setting was changed; `hasNewHosts`: what was asked of the old servers does not count.
  void reload(bool hasNewHosts);

  const WeatherTexts& texts() const { return texts_; }
  QVariantList searchResults() const;
  QString searchNote() const { return searchNote_; }

  // Waits for a pause in the typing.
  Q_INVOKABLE void search(const QString& text);
  Q_INVOKABLE void choose(int result);
  // The first result for what is typed, once it is there.
  Q_INVOKABLE void chooseFirst();
  void choose(const Place& place);
  // Brings ages and times up to date, while somebody looks.
  Q_INVOKABLE void update();

  const Place& place() const { return place_; }
  const WeatherReading& reading() const { return reading_; }

  std::optional<Instant> due() const override;
  void tick(Instant now) override;
  void slept(Seconds span, Instant now) override;
  void clockMoved(Seconds by, Instant now) override;

 Q_SIGNALS:
  void changed();
  void searchChanged();
  void placeChosen();

 private:
  void send(WeatherSchedule::Requests requests);
  void askForecast();
  void forecastAnswered(const std::optional<QByteArray>& body, bool usedFahrenheit, const WeatherProblem& problem);
  void askAirQuality();
  void airQualityAnswered(const std::optional<QByteArray>& body, const WeatherProblem& problem);
  void askPlaces();
  void placesAnswered(const std::optional<QByteArray>& body);
  void loadPlace();
  void choose(const Place& place, const UserDefaults::Keeper& keep);
  void usePlace();
  void publish(Instant now);

  Setting setting_;
  WeatherService& service_;
  UserDefaults& defaults_;
  PresentCalendar calendar_;
  std::function<Instant()> now_;
  Place place_;
  bool usesFahrenheit_;
  WeatherSchedule schedule_;
  WeatherReading reading_;
  WeatherTexts texts_;
  // An answer to an older question than the present one is not looked at.
  int generation_ = 0, searchGeneration_ = 0;
  QString searchText_;
  std::optional<Instant> searchAt_;
  bool isSearching_ = false;
  UserDefaults::Keeper takesFirst_;  // the first result is chosen once it is there
  std::vector<FoundPlace> found_;
  QString searchNote_;
};

}  // namespace ambrel
