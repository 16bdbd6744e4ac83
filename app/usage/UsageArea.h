#pragma once
// What the AI plans have left, and the connection to Claude Code's own percentages.

#include "app/base/Area.h"
#include "app/usage/AIUsageModel.h"
#include "app/usage/ClaudeBudgetModel.h"
#include "app/usage/ClaudeStatusLineModel.h"

namespace ambrel {

class UsageArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::AIUsageModel* usage READ usage CONSTANT FINAL)
  Q_PROPERTY(ambrel::ClaudeStatusLineModel* statusLine READ statusLine CONSTANT FINAL)

 public:
  UsageArea(AppSettings& settings, const std::filesystem::path& home, const std::filesystem::path& dataFolder,
            AIUsageModel::Seams seams, QObject* parent = nullptr);

  AIUsageModel* usage() { return &usage_; }
  ClaudeStatusLineModel* statusLine() { return &statusLine_; }
  ClaudeBudgetModel* budget() { return &budget_; }
  QVariantMap sample(DockWidget widget) override;
  void zoneChanged(Instant /*now*/) override { usage_.refresh(); }
  void addSignals(BuddySignals& signals, Instant now) override;

 private:
  PresentCalendar calendar_;
  std::function<Instant()> now_;
  AIUsageModel usage_;
  ClaudeStatusLineModel statusLine_;
  ClaudeBudgetModel budget_;
};

}  // namespace ambrel
