// The computer's parts: when they are read, their panels, and what a click does.

#include <QGuiApplication>
#include <QScreen>

#include "app/AppDelegate.h"
#include "app/base/QmlObjects.h"
#include "core/widgets.h"

namespace ambrel {
namespace {

std::set<DockWidget> widgetsOf(const Profile* profile) {
  std::set<DockWidget> widgets;
  if (!profile) return widgets;
  for (const DockItem& item : profile->items)
    if (const auto widget = fromName<DockWidget>(item.widget.value_or(""))) widgets.insert(*widget);
  return widgets;
}

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

void watchMainDisplay(LiveModels& live) {
  const auto look = [&live] { live.setDisplay(mainDisplay()); };
  const auto follow = [&live, look](const QScreen* screen) {
    look();
    if (!screen) return;
    QObject::connect(screen, &QScreen::geometryChanged, &live, look);
    QObject::connect(screen, &QScreen::refreshRateChanged, &live, look);
    QObject::connect(screen, &QScreen::physicalDotsPerInchChanged, &live, look);
  };
  QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &live, follow);
  follow(QGuiApplication::primaryScreen());
}

}  // namespace

void AppDelegate::makeTelemetry() {
  live_ = std::make_unique<LiveModels>(LiveSeams{.telemetry = desktop_.telemetry,
                                                 .latency = desktop_.latency,
                                                 .sound = desktop_.soundControl,
                                                 .bluetooth = desktop_.bluetooth,
                                                 .volumes = desktop_.volumes,
                                                 .keepAwake = desktop_.keepAwake,
                                                 .readings = desktop_.readings,
                                                 .background = makeBackground(*this),
                                                 .calendar = surroundings_.calendar,
                                                 .now = surroundings_.now});
  keep({live_.get()});
  watchMainDisplay(*live_);
}

void AppDelegate::addTelemetryPanels() {
  const auto follow = [this] {
    const auto shown = widgetsOf(model_.activeProfile());
    live_->setShown(shown, context_->widgetsActive(), surroundings_.now());
    system_->setWanted({.memory = shown.contains(DockWidget::memory) || shown.contains(DockWidget::memoryPressure),
                        .network = shown.contains(DockWidget::network) || shown.contains(DockWidget::networkChart)});
  };
  connect(&model_, &AppModel::activeProfileChanged, live_.get(), follow);
  connect(context_.get(), &WidgetContext::widgetsActiveChanged, live_.get(), follow);
  follow();

  const QVariantMap live{{QStringLiteral("live"), toVariant(*live_)}};
  QVariantMap liveAndSystem = live;
  liveAndSystem.insert(QStringLiteral("system"), toVariant(*system_));
  // What a panel shows beyond its tile is read while it is open.
  const auto reads = [this](DockPopoverController& panel, SamplerBase& sampler, Seconds interval) {
    connect(&panel, &DockPopoverController::shownChanged, live_.get(),
            [this, &panel, &sampler, interval, need = LiveModels::Need()]() mutable {
              need = panel.isShown() ? live_->require(sampler, interval) : nullptr;
            });
  };
  DockPopoverController& processor =
      addTilePanel({"cpu", "cpuChart", "topApps"}, "Telemetry/ProcessorPanel.qml", liveAndSystem, {340, 420});
  reads(processor, live_->topApps(), live_->topApps().interval());
  DockPopoverController& memory =
      addTilePanel({"memory", "memoryPressure"}, "Telemetry/MemoryPanel.qml", liveAndSystem, {340, 196});
  reads(memory, live_->pressure(), live_->pressure().interval());
  DockPopoverController& network =
      addTilePanel({"network", "networkChart"}, "Telemetry/NetworkPanel.qml", liveAndSystem, {340, 330});
  reads(network, live_->addresses(), live_->addresses().interval());
  network.onContentMade = [this](QObject& content) {
    connect(&content, SIGNAL(copyAsked(QString)), this, SLOT(copyText(QString)));
  };
  DockPopoverController& power =
      addTilePanel({"battery", "power", "batteryHealth"}, "Telemetry/PowerPanel.qml", live, {340, 288});
  reads(power, live_->power(), live_->power().interval());
  reads(power, live_->batteryHealth(), live_->batteryHealth().interval());
  addTilePanel({"latency"}, "Telemetry/LatencyPanel.qml", live, {340, 338});
  addTilePanel({"wifi"}, "Telemetry/WiFiPanel.qml", live, {340, 248});
  addTilePanel({"volumes"}, "Telemetry/VolumesPanel.qml", live, {340, 276});
  addTilePanel({"bluetooth"}, "Telemetry/BluetoothPanel.qml",
               {{QStringLiteral("bluetooth"), toVariant(*live_->bluetooth())}}, {340, 276});
  addTilePanel({"volume"}, "Telemetry/SoundPanel.qml", {{QStringLiteral("sound"), toVariant(*live_->sound())}},
               {340, 224});

  context_->setClickAction(QStringLiteral("keepAwake"), [this](const QString&) { live_->keepAwake()->toggle(); });
  context_->setClickAction(QStringLiteral("micMute"), [this](const QString&) { live_->sound()->toggleMicrophone(); });
  context_->setClickAction(QStringLiteral("ipAddress"), [this](const QString&) { copyText(live_->addressToCopy()); });
  context_->setMenuCommand(QStringLiteral("volume"),
                           {.text = [this] { return live_->sound()->isMuted() ? tr("Unmute") : tr("Mute"); },
                            .symbol = QStringLiteral("speaker.slash"),
                            .action = [this](const QString&) { live_->sound()->toggleMuted(); }});
  live_->onEjected = [this](const QString& name, const EjectResult& result) {
    const bool isOut = result.outcome == EjectOutcome::ejected;
    toast_.show(isOut ? tr("%1 may be unplugged").arg(name) : tr("%1 was not ejected").arg(name),
                isOut ? QString() : refusal(result),
                isOut ? QStringLiteral("eject") : QStringLiteral("exclamationmark.triangle"));
  };
}

}  // namespace ambrel
