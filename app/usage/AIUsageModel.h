#pragma once
// How much of the user's AI plans is spent, read off the main thread once a minute and published when it differs.

#include <QObject>
#include <QTimer>
#include <QtQml/qqmlregistration.h>
#include <filesystem>
#include <functional>
#include <memory>

#include "app/base/Background.h"
#include "app/usage/UsageTileText.h"
#include "core/base/PresentCalendar.h"
#include "core/usage.h"

namespace ambrel {

class AIUsageModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(bool hasLoaded READ hasLoaded NOTIFY hasLoadedChanged FINAL)
  Q_PROPERTY(ambrel::UsageTileText* claudeTile READ claudeTile CONSTANT FINAL)
  Q_PROPERTY(ambrel::UsageTileText* codexTile READ codexTile CONSTANT FINAL)

 public:
  struct Seams {
    Background background;
    std::function<Instant()> now;
    PresentCalendar calendar;
  };

  // dataFolder: where the program keeps its own files.
  AIUsageModel(const std::filesystem::path& home, const std::filesystem::path& dataFolder, Seams seams,
               QObject* parent = nullptr);

  // Begins a pass now and one each minute from then on; when called again, does nothing.
  void start();
  // Begins a pass, unless one is under way: such a wish is dropped.
  void refresh();

  const ClaudeUsageSnapshot& claude() const { return usage_.claude; }
  const std::optional<CodexUsage::Limits>& codex() const { return usage_.codex; }
  const std::optional<ClaudeLimits::Limits>& claudeLimits() const { return usage_.claudeLimits; }
  // The first pass has ended.
  bool hasLoaded() const { return hasLoaded_; }
  bool isStarted() const { return timer_.isActive(); }

  // The tiles' texts, as of the last pass.
  UsageTileText* claudeTile() { return &claudeTile_; }
  UsageTileText* codexTile() { return &codexTile_; }

 Q_SIGNALS:
  void claudeChanged();
  void codexChanged();
  void claudeLimitsChanged();
  void hasLoadedChanged();

 private:
  void publish(AIUsage usage);
  void updateTiles();

  Seams seams_;
  std::shared_ptr<AIUsageReader> reader_;  // shared with the pass that is under way
  AIUsage usage_;
  bool hasLoaded_ = false;
  bool isRefreshing_ = false;
  QTimer timer_;
  UsageTileText claudeTile_;
  UsageTileText codexTile_;
};

}  // namespace ambrel
