#pragma once
// The weather of the two places, from one service.

#include <functional>
#include <memory>

#include "app/base/Area.h"
#include "app/base/DueTimer.h"
#include "app/weather/WeatherModel.h"
#include "core/base/PresentCalendar.h"

namespace ambrel {

class WeatherArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::WeatherModel* main READ main CONSTANT FINAL)
  // Made when it is first asked for.
  Q_PROPERTY(ambrel::WeatherModel* second READ second CONSTANT FINAL)

 public:
  // The references outlive it.
  WeatherArea(Fetcher& fetcher, UserDefaults& defaults, PresentCalendar calendar, std::function<Instant()> now,
              DueTimer& due, QObject* parent = nullptr);

  WeatherModel* main() { return &main_; }
  WeatherModel* second();
  // Which of the two are shown; no requests are made for the other.
  void setWanted(bool isMainWanted, bool isSecondWanted);
  void widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant now) override;
  QVariantMap sample(DockWidget widget) override;
  void defaultsChanged(const std::set<std::string>& keys) override;

 private:
  void add(WeatherModel& model);
  void watchNetwork();

  Fetcher& fetcher_;
  UserDefaults& defaults_;
  PresentCalendar calendar_;
  std::function<Instant()> now_;
  DueTimer& due_;
  WeatherService service_;
  WeatherModel main_;
  std::unique_ptr<WeatherModel> second_;
  bool followsNetwork_ = false;
};

}  // namespace ambrel
