#include "app/usage/AIUsageModel.h"

#include <utility>

namespace ambrel {
namespace {

constexpr std::chrono::seconds interval{60};

template <typename Value>
bool replace(Value& present, Value&& next) {
  if (present == next) return false;
  present = std::move(next);
  return true;
}

}  // namespace

AIUsageModel::AIUsageModel(const std::filesystem::path& home, const std::filesystem::path& dataFolder, Seams seams,
                           QObject* parent)
    : QObject(parent),
      seams_(std::move(seams)),
      reader_(std::make_shared<AIUsageReader>(home, dataFolder)),
      claudeTile_(claudeUsageTile({}, {}, false, seams_.now(), seams_.calendar())),
      codexTile_(codexLimitsTile({}, false, seams_.now(), seams_.calendar())) {
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
  const bool claudeDiffers = replace(usage_.claude, std::move(usage.claude));
  const bool codexDiffers = replace(usage_.codex, std::move(usage.codex));
  const bool limitsDiffer = replace(usage_.claudeLimits, std::move(usage.claudeLimits));
  const bool isFirst = !std::exchange(hasLoaded_, true);
  isRefreshing_ = false;
  updateTiles();
  if (claudeDiffers) Q_EMIT claudeChanged();
  if (codexDiffers) Q_EMIT codexChanged();
  if (limitsDiffer) Q_EMIT claudeLimitsChanged();
  if (isFirst) Q_EMIT hasLoadedChanged();
}

void AIUsageModel::updateTiles() {
  const Instant now = seams_.now();
  const Calendar calendar = seams_.calendar();
  claudeTile_.set(claudeUsageTile(usage_.claude, usage_.claudeLimits, hasLoaded_, now, calendar));
  codexTile_.set(codexLimitsTile(usage_.codex, hasLoaded_, now, calendar));
}

}  // namespace ambrel
