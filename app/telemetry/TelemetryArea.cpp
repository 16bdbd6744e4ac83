#include "app/telemetry/TelemetryArea.h"

#include <QGuiApplication>
#include <QScreen>

#include "app/base/QmlObjects.h"
#include "core/buddy/Thresholds.h"

namespace ambrel {
namespace {

// How often the battery is looked at while no tile shows it, and the busiest program while the load is high: Buddy
// names it once the load has lasted two minutes, and no reading costs more than that of all programs.
constexpr Seconds batteryRhythm{30}, busiestRhythm{30};

std::optional<DisplayReading> mainDisplay() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (!screen) return std::nullopt;
  const QSize pixels = screen->size() * screen->devicePixelRatio();
  return DisplayReading{.name = screen->name().toStdString(),
                        .width = pixels.width(),
                        .height = pixels.height(),
                        .refreshRate = screen->refreshRate(),
                        .scale = screen->devicePixelRatio()};
}

}  // namespace

TelemetryArea::TelemetryArea(LiveSeams seams, Shell& shell, QObject* parent)
    : Area(QStringLiteral("Telemetry"), parent),
      shell_(shell),
      calendar_(seams.calendar),
      live_(std::move(seams)),
      processorNeed_(live_.require(live_.processor(), live_.processor().interval())),
      diskNeed_(live_.require(live_.startUpVolume(), live_.startUpVolume().interval())) {
  keep({this, &live_});
  followMainDisplay();
  live_.onEjected = [this](const QString& name, const EjectResult& result) {
    const bool isOut = result.outcome == EjectOutcome::ejected;
    shell_.showToast(isOut ? tr("%1 may be unplugged").arg(name) : tr("%1 was not ejected").arg(name),
                     isOut ? QString() : refusal(result),
                     isOut ? QStringLiteral("eject") : QStringLiteral("exclamationmark.triangle"));
  };
}

LiveFace* TelemetryArea::face(const QString& widget) {
  const auto found = fromName<DockWidget>(widget.toStdString());
  return found ? &live_.face(*found) : nullptr;
}

void TelemetryArea::followMainDisplay() {
  const auto look = [this] { live_.setDisplay(mainDisplay()); };
  const auto follow = [this, look](const QScreen* screen) {
    look();
    if (!screen) return;
    connect(screen, &QScreen::geometryChanged, this, look);
    connect(screen, &QScreen::refreshRateChanged, this, look);
    connect(screen, &QScreen::physicalDotsPerInchChanged, this, look);
  };
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, follow);
  follow(QGuiApplication::primaryScreen());
}

void TelemetryArea::widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant now) {
  using enum DockWidget;
  const auto hold = [&](LiveModels::Need& need, SamplerBase& sampler, bool isWanted) {
    if (!isWanted)
      need.reset();
    else if (!need)
      need = live_.require(sampler, sampler.interval());
  };
  hold(memoryNeed_, live_.memory(), onBar.contains(memory) || onBar.contains(memoryPressure));
  hold(networkNeed_, live_.network(), onBar.contains(network) || onBar.contains(networkChart));
  live_.setShown(onBar, areSeen, now);
}

void TelemetryArea::addSignals(BuddySignals& signals, Instant /*now*/) {
  signals.cpuUsage = live_.processor().value();
  if (const auto& disk = live_.startUpVolume().value()) signals.diskFreeBytes = disk->freeBytes;
  if (!batteryNeed_) batteryNeed_ = live_.require(live_.power(), batteryRhythm);
  const auto& power = live_.power().value();
  // On mains power the battery may be full or resting: nobody has to look for the charger.
  if (power && power->percent)
    signals.battery = {.percent = *power->percent, .isCharging = power->isCharging || power->isOnAdapter};
  if (!signals.cpuUsage || *signals.cpuUsage <= BuddyThresholds::highLoad) {
    busiestNeed_.reset();
    return;
  }
  if (!busiestNeed_) busiestNeed_ = live_.require(live_.topApps(), busiestRhythm);
  const auto& busiest = live_.topApps().value();
  if (busiest && !busiest->empty()) signals.topProcess = busiest->front().name;
}

}  // namespace ambrel
