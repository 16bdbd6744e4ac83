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

TelemetryArea::TelemetryArea(LiveSeams seams, Background background, Shell& shell, QObject* parent)
    : Area(QStringLiteral("Telemetry"), parent),
      shell_(shell),
      system_(seams.readings, std::move(background), seams.calendar),
      live_(seams) {
  keep({this, &system_, &live_});
  followMainDisplay();
  live_.onEjected = [this](const QString& name, const EjectResult& result) {
    const bool isOut = result.outcome == EjectOutcome::ejected;
    shell_.showToast(isOut ? tr("%1 may be unplugged").arg(name) : tr("%1 was not ejected").arg(name),
                     isOut ? QString() : refusal(result),
                     isOut ? QStringLiteral("eject") : QStringLiteral("exclamationmark.triangle"));
  };
}

LiveFace* TelemetryArea::face(const QString& widget) {
  using enum DockWidget;
  const auto found = fromName<DockWidget>(widget.toStdString());
  if (!found) return nullptr;
  switch (*found) {
    case cpu:
    case cpuChart:
      return system_.cpuFace();
    case memory:
      return system_.memoryFace();
    case disk:
      return system_.diskFace();
    case network:
    case networkChart:
      return system_.networkFace();
    default:
      break;
  }
  LiveFace& face = live_.face(*found);
  keep({&face});
  return &face;
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
  live_.setShown(onBar, areSeen, now);
  system_.setWanted({.memory = onBar.contains(memory) || onBar.contains(memoryPressure),
                     .network = onBar.contains(network) || onBar.contains(networkChart)});
}

void TelemetryArea::tick(Instant now) {
  system_.tick();
  live_.tick(now);
}

void TelemetryArea::addSignals(BuddySignals& signals, Instant /*now*/) {
  signals.cpuUsage = system_.cpuUsage();
  if (const auto disk = system_.disk()) signals.diskFreeBytes = disk->freeBytes;
  if (!batteryNeed_) batteryNeed_ = live_.require(live_.power(), batteryRhythm);
  const auto& power = live_.power().value();
  // At the mains it may rest without charging, and then there is no charger to look for.
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
