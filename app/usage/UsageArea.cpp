#include "app/usage/UsageArea.h"

#include "app/base/QmlObjects.h"

namespace ambrel {

UsageArea::UsageArea(AppSettings& settings, const std::filesystem::path& home, const std::filesystem::path& dataFolder,
                     AIUsageModel::Seams seams, QObject* parent)
    : Area(QStringLiteral("Usage"), parent),
      calendar_(seams.calendar),
      now_(seams.now),
      usage_(home, dataFolder, seams),
      statusLine_(ClaudeStatusLine::Files(home, dataFolder, seams.folders)),
      budget_(settings, seams.calendar) {
  keep({this, &usage_, &statusLine_, &budget_});
  connect(&statusLine_, &ClaudeStatusLineModel::connectionChanged, &usage_, &AIUsageModel::refresh);
}

void UsageArea::addSignals(BuddySignals& signals, Instant /*now*/) {
  signals.claudeBlock = usage_.claude().block;
  signals.claudeLimits = usage_.claudeLimits();
  signals.codex = usage_.codex();
}

QVariantMap UsageArea::sample(DockWidget widget) {
  using namespace std::chrono;
  const Instant now = now_();
  const CodexUsage::Window session{.usedPercent = 62, .windowMinutes = 300, .resetsAt = now + minutes(198)};
  const CodexUsage::Window week{.usedPercent = 31, .windowMinutes = 10080, .resetsAt = now + days(4)};
  const UsageTile tile =
      widget == DockWidget::codexLimits
          ? codexLimitsTile(CodexUsage::Limits{.session = session, .week = week, .asOf = now}, true, now, calendar_())
          : claudeUsageTile({}, ClaudeLimits::Limits{.session = session, .week = week, .asOf = now}, true, now,
                            calendar_());
  return {{QStringLiteral("face"), QVariant::fromValue(usageFace(tile))}};
}

}  // namespace ambrel
