#include "app/usage/AIUsageModel.h"

#include <utility>

namespace ambrel {
namespace {

constexpr std::chrono::seconds interval{60};

}  // namespace

AIUsageModel::AIUsageModel(const std::filesystem::path& home, const std::filesystem::path& dataFolder, Seams seams,
                           QObject* parent)
    : QObject(parent),
      seams_(std::move(seams)),
      reader_(std::make_shared<AIUsageReader>(home, dataFolder, seams_.folders)) {
  updateTiles();
  timer_.setTimerType(Qt::VeryCoarseTimer);
  timer_.setInterval(interval);
  connect(&timer_, &QTimer::timeout, this, &AIUsageModel::refresh);
}

void AIUsageModel::start() {
  if (timer_.isActive()) return;
  refresh();
  timer_.start();
}

void AIUsageModel::refresh() {
  if (isRefreshing_) return;
  isRefreshing_ = true;
  auto found = std::make_shared<AIUsage>();
  seams_.background([reader = reader_, found, now = seams_.now(),
                     calendar = seams_.calendar()] { *found = reader->read(now, calendar); },
                    [this, found] { publish(std::move(*found)); });
}

void AIUsageModel::publish(AIUsage usage) {
  usage_ = std::move(usage);
  hasLoaded_ = true;
  isRefreshing_ = false;
  updateTiles();
}

void AIUsageModel::updateTiles() {
  const Instant now = seams_.now();
  const Calendar calendar = seams_.calendar();
  const UsageFace claude = usageFace(claudeUsageTile(usage_.claude, usage_.claudeLimits, hasLoaded_, now, calendar));
  const UsageFace codex = usageFace(codexLimitsTile(usage_.codex, hasLoaded_, now, calendar));
  if (claude == claudeTile_ && codex == codexTile_) return;
  claudeTile_ = claude;
  codexTile_ = codex;
  Q_EMIT changed();
}

}  // namespace ambrel
