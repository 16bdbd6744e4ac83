#include "app/telemetry/LiveModels.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "app/base/QmlObjects.h"
#include "app/base/StoredValue.h"

namespace ambrel {
namespace {

// Multiples of the tick, so that nothing wakes up for a sampler alone.
constexpr Seconds often{2}, usual{4}, leisurely{6}, seldom{30};
constexpr Seconds latencyInterval{30};
constexpr Seconds diskInterval{60};
// A minute of the processor and of the network.
constexpr std::size_t minuteLength = 30;
// 80 seconds of the graphics processor.
constexpr std::size_t gpuLength = 20;
// Ten minutes of probes.
constexpr std::size_t latencyLength = 20;
// How long a row says why its drive was not ejected.
constexpr Seconds refusalStays{30};
constexpr std::size_t shownPrograms = 3, listedPrograms = 12;

template <typename Raw, typename Value>
Sampled<Value> sampled(const Sampler<Raw, Value>& sampler) {
  return {sampler.value(), sampler.isUnavailable()};
}

// For what the kernel answers at once: another thread would cost more than the reading.
void atOnce(const std::function<void()>& work, const std::function<void()>& done) {
  work();
  done();
}

std::optional<double> loadBetween(const std::optional<ProcessorTicks>& previous, const ProcessorTicks& current) {
  return previous ? processorUsage(*previous, current) : std::nullopt;
}

std::optional<NetworkSample> networkSample(const SystemReadings& readings) {
  NetworkCounters counters = readings.network();
  if (counters.empty()) return std::nullopt;
  return NetworkSample{std::move(counters), readings.sinceBoot()};
}

std::optional<NetworkRates> ratesBetween(const std::optional<NetworkSample>& previous, const NetworkSample& current) {
  if (!previous) return std::nullopt;
  return networkRates(previous->counters, current.counters, current.at - previous->at);
}

}  // namespace

LiveModels::LiveModels(LiveSeams seams, QObject* parent)
    : QObject(parent),
      seams_(std::move(seams)),
      processor_({.interval = tickInterval,
                  .historyLength = minuteLength,
                  .read = [&r = seams_.readings] { return r.processor(); },
                  .combine = loadBetween},
                 atOnce),
      memory_({.interval = tickInterval, .read = [&r = seams_.readings] { return r.memory(); }}, atOnce),
      network_({.interval = tickInterval,
                .historyLength = minuteLength,
                .read = [&r = seams_.readings] { return networkSample(r); },
                .combine = ratesBetween},
               atOnce),
      startUpVolume_({.interval = diskInterval, .read = [&r = seams_.readings] { return r.startUpVolume(); }},
                     seams_.background),
      gpu_({.interval = usual, .historyLength = gpuLength, .read = [&t = seams_.telemetry] { return t.gpu(); }},
           seams_.background),
      pressure_({.interval = usual, .read = [&t = seams_.telemetry] { return t.pressure(); }}, gathered()),
      diskActivity_(
          {.interval = often, .read = [&t = seams_.telemetry] { return t.diskCounters(); }, .combine = diskRates},
          gathered()),
      topApps_({.interval = usual,
                .read = [&t = seams_.telemetry] { return t.processes(); },
                .combine = [](const std::optional<ProcessSnapshot>& previous,
                              const ProcessSnapshot& current) { return ProcessRanking::usage(previous, current); }},
               gathered()),
      batteryHealth_({.interval = seldom, .read = [&t = seams_.telemetry] { return t.batteryHealth(); }},
                     seams_.background),
      power_({.interval = usual, .read = [&t = seams_.telemetry] { return t.power(); }}, seams_.background),
      wifi_({.interval = leisurely, .read = [&t = seams_.telemetry] { return t.wifi(); }}, seams_.background),
      latency_({.interval = latencyInterval,
                .historyLength = latencyLength,
                .read = [&l = seams_.latency] { return std::optional(l.probe()); },
                .keepsHistory = true},
               seams_.background),
      volumes_({.interval = usual, .read = [&t = seams_.telemetry] { return t.volumes(); }}, seams_.background),
      thermal_({.interval = leisurely, .read = [&t = seams_.telemetry] { return t.thermal(); }}, gathered()),
      addresses_({.interval = leisurely, .read = [&t = seams_.telemetry] { return std::optional(t.addresses()); }},
                 gathered()),
      bluetooth_(seams_.bluetooth, seams_.calendar, face(DockWidget::bluetooth)),
      sound_(seams_.sound, seams_.calendar, face(DockWidget::volume), face(DockWidget::micMute)),
      keepAwake_(seams_.keepAwake, face(DockWidget::keepAwake)) {
  using enum DockWidget;
  const auto follow = [this](SamplerBase& sampler, std::vector<DockWidget> widgets, auto publish) {
    entries_.push_back({&sampler, std::move(widgets), {}});
    const auto update = [this, publish] { publish(seams_.calendar()); };
    update();
    connect(&sampler, &SamplerBase::sampled, this, update);
  };
  follow(processor_, {cpu, cpuChart},
         [this, cores = static_cast<int>(std::thread::hardware_concurrency())](const Calendar& c) {
           face(cpu).set(processorTile(c, processor_.value(), processor_.history(), cores));
         });
  follow(memory_, {DockWidget::memory},
         [this](const Calendar& c) { face(DockWidget::memory).set(memoryTile(c, memory_.value())); });
  follow(network_, {DockWidget::network, networkChart}, [this](const Calendar& c) {
    face(DockWidget::network).set(networkTile(c, network_.value(), network_.history()));
  });
  follow(startUpVolume_, {disk}, [this](const Calendar& c) { face(disk).set(diskTile(c, startUpVolume_.value())); });
  follow(gpu_, {gpu}, [this](const Calendar& c) { face(gpu).set(gpuTile(c, sampled(gpu_), gpu_.history())); });
  follow(pressure_, {memoryPressure},
         [this](const Calendar& c) { face(memoryPressure).set(pressureTile(c, sampled(pressure_))); });
  follow(diskActivity_, {diskActivity},
         [this](const Calendar& c) { face(diskActivity).set(diskActivityTile(c, sampled(diskActivity_))); });
  follow(topApps_, {topApps}, [this](const Calendar& c) {
    const auto usage = topApps_.value().value_or(std::vector<ProcessUsage>{});
    face(topApps).set(topAppsTile(c, sampled(topApps_)));
    face(topApps).setRows(processRows(c, usage, shownPrograms));
    processes_.setRows(processRows(c, usage, listedPrograms));
  });
  follow(batteryHealth_, {batteryHealth}, [this](const Calendar& c) { publishPower(c); });
  follow(power_, {battery, power}, [this](const Calendar& c) {
    publishPower(c);
    noticeBattery();
  });
  follow(wifi_, {wifi}, [this](const Calendar& c) {
    face(wifi).set(wifiTile(c, sampled(wifi_)));
    face(wifi).setRows(wifiRows(c, wifi_.value().value_or(WiFiReading{})));
  });
  follow(latency_, {latency}, [this](const Calendar& c) {
    face(latency).set(latencyTile(c, sampled(latency_), latency_.history()));
    face(latency).setRows(latencyRows(c, latency_.history()));
  });
  follow(volumes_, {volumes}, [this](const Calendar&) { publishVolumes(); });
  follow(thermal_, {thermal}, [this](const Calendar& c) { face(thermal).set(thermalTile(c, sampled(thermal_))); });
  follow(addresses_, {ipAddress}, [this](const Calendar&) {
    face(ipAddress).set(addressTile(sampled(addresses_)));
    face(ipAddress).setRows(addressRows(addresses_.value().value_or(std::vector<NetworkAddress>{})));
  });
  publishUptime(seams_.now());
  setDisplay(std::nullopt);
  keep({&processes_, &bluetooth_, &sound_, &keepAwake_});
}

LiveModels::~LiveModels() = default;

Background LiveModels::gathered() {
  return [this](std::function<void()> work, std::function<void()> done) {
    gathered_.emplace_back(std::move(work), std::move(done));
  };
}

void LiveModels::flush() {
  if (gathered_.empty()) return;
  auto jobs = std::make_shared<decltype(gathered_)>(std::exchange(gathered_, {}));
  seams_.background(
      [jobs] {
        for (const auto& job : *jobs) job.first();
      },
      [jobs] {
        for (const auto& job : *jobs) job.second();
      });
}

std::optional<Seconds> LiveModels::rhythm(Entry& entry) const {
  std::optional<Seconds> shortest;
  const bool isShown = areActive_ && std::ranges::any_of(entry.widgets, [this](auto w) { return isOnBar(w); });
  if (isShown) shortest = entry.sampler->interval();
  std::erase_if(entry.needs, [](const auto& need) { return need.expired(); });
  for (const auto& held : entry.needs)
    if (const Need need = held.lock()) shortest = shortest ? std::min(*shortest, *need) : *need;
  return shortest;
}

void LiveModels::tick(Instant now) {
  for (Entry& entry : entries_)
    if (const auto interval = rhythm(entry)) entry.sampler->poll(seams_.readings.sinceBoot(), *interval);
  flush();
  if (areActive_ && isOnBar(DockWidget::uptime)) publishUptime(now);
}

void LiveModels::setShown(std::set<DockWidget> widgets, bool areActive, Instant now) {
  const bool isPutAway = isOnBar(DockWidget::keepAwake) && !widgets.contains(DockWidget::keepAwake);
  widgets_ = std::move(widgets);
  areActive_ = areActive;
  // These report changes themselves, so listening out of sight costs nothing.
  sound_.setListening(isOnBar(DockWidget::volume) || isOnBar(DockWidget::micMute));
  bluetooth_.setListening(isOnBar(DockWidget::bluetooth));
  if (isPutAway) keepAwake_.release();
  tick(now);
}

LiveFace& LiveModels::face(DockWidget widget) {
  // A chart shows another side of the same reading.
  if (widget == DockWidget::cpuChart) widget = DockWidget::cpu;
  if (widget == DockWidget::networkChart) widget = DockWidget::network;
  LiveFace& face = faces_[widget];
  keep({&face});
  return face;
}

SamplerBase* LiveModels::samplerOf(DockWidget widget) {
  for (const Entry& entry : entries_)
    if (std::ranges::find(entry.widgets, widget) != entry.widgets.end()) return entry.sampler;
  return nullptr;
}

void LiveModels::setDisplay(const std::optional<DisplayReading>& display) {
  face(DockWidget::display).set(displayTile(display));
}

LiveModels::Need LiveModels::require(SamplerBase& sampler, Seconds interval) {
  auto need = std::make_shared<const Seconds>(interval);
  for (Entry& entry : entries_)
    if (entry.sampler == &sampler) entry.needs.push_back(need);
  sampler.poll(seams_.readings.sinceBoot(), interval);
  flush();
  return need;
}

void LiveModels::publishPower(const Calendar& calendar) {
  using enum DockWidget;
  face(battery).set(batteryTile(calendar, sampled(power_)));
  face(power).set(powerTile(calendar, sampled(power_)));
  face(power).setRows(powerRows(calendar, power_.value(), batteryHealth_.value()));
  face(batteryHealth).set(batteryHealthTile(calendar, sampled(batteryHealth_)));
}

// A battery that was removed or added has another health.
void LiveModels::noticeBattery() {
  if (!power_.lastRun()) return;
  const bool hasBattery = power_.value() && power_.value()->percent;
  const auto had = std::exchange(hadBattery_, hasBattery);
  if (had && *had != hasBattery && batteryHealth_.lastRun()) batteryHealth_.refresh(seams_.readings.sinceBoot());
}

void LiveModels::publishVolumes() {
  const auto list = volumes_.value().value_or(std::vector<VolumeInfo>{});
  // The message goes when its drive is gone, and after a while in any case.
  const Seconds now = seams_.readings.sinceBoot();
  std::erase_if(ejects_, [&](const auto& entry) {
    const auto& [url, eject] = entry;
    if (eject.isUnderWay) return false;
    return std::ranges::find(list, url, &VolumeInfo::url) == list.end() || now - eject.endedAt > refusalStays;
  });
  LiveFace& shown = face(DockWidget::volumes);
  shown.set(volumesTile(seams_.calendar, sampled(volumes_), ejects_));
  shown.setRows(volumeRows(seams_.calendar, list, ejects_));
}

void LiveModels::publishUptime(Instant now) {
  const Seconds sinceBoot = seams_.readings.sinceBoot();
  const auto minutes = static_cast<long long>(sinceBoot.count() / 60);
  const Calendar calendar = seams_.calendar();
  if (uptimeMinutes_ == minutes && uptimeZone_ == calendar.zone()) return;
  uptimeMinutes_ = minutes;
  uptimeZone_ = calendar.zone();
  face(DockWidget::uptime).set(uptimeTile(calendar, sinceBoot, now));
}

void LiveModels::eject(const QString& url) {
  const std::string key = url.toStdString();
  const auto& list = volumes_.value();
  if (!list) return;
  const auto volume = std::ranges::find(*list, key, &VolumeInfo::url);
  if (volume == list->end() || volume->isRemote || ejects_[key].isUnderWay) return;
  ejects_[key] = {.isUnderWay = true};
  publishVolumes();
  seams_.volumes.eject(key, [self = QPointer(this), key, name = toQString(volume->name)](const EjectResult& result) {
    if (!self) return;
    self->ejects_[key] = {.isUnderWay = false, .result = result, .endedAt = self->seams_.readings.sinceBoot()};
    self->publishVolumes();
    self->volumes_.refresh(self->seams_.readings.sinceBoot());
    if (self->onEjected) self->onEjected(name, result);
  });
}

void LiveModels::ejectFirst() {
  if (const auto& list = volumes_.value(); list && !list->empty()) eject(toQString(list->front().url));
}

void LiveModels::refreshLatency() { latency_.refresh(seams_.readings.sinceBoot()); }

QString LiveModels::addressToCopy() const {
  const auto& list = addresses_.value();
  return list && !list->empty() ? toQString(list->front().text) : QString();
}

}  // namespace ambrel
