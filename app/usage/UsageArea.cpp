#include "app/usage/UsageArea.h"

#include "app/base/QmlObjects.h"

namespace ambrel {

UsageArea::UsageArea(AppSettings& settings, const std::filesystem::path& home, const std::filesystem::path& dataFolder,
                     AIUsageModel::Seams seams, QObject* parent)
    : Area(QStringLiteral("Usage"), parent),
      usage_(home, dataFolder, seams),
      statusLine_(ClaudeStatusLine::Files(home, dataFolder)),
      budget_(settings, seams.calendar) {
  keep({this, &usage_, &statusLine_, &budget_});
  connect(&statusLine_, &ClaudeStatusLineModel::connectionChanged, &usage_, &AIUsageModel::refresh);
}

void UsageArea::addSignals(BuddySignals& signals, Instant /*now*/) {
  signals.claudeBlock = usage_.claude().block;
  signals.claudeLimits = usage_.claudeLimits();
  signals.codex = usage_.codex();
}

}  // namespace ambrel
