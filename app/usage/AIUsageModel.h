#pragma once
// How much of the user's AI plans is spent, read off the main thread once a minute and published when it differs.

#include <QObject>
#include <QTimer>
#include <QtQml/qqmlregistration.h>
#include <filesystem>
#include <functional>
#include <memory>

#include "app/base/Background.h"
#include "app/usage/UsageFace.h"
#include "core/base/PresentCalendar.h"
#include "core/usage.h"

namespace ambrel {

class AIUsageModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::UsageFace claudeTile READ claudeTile NOTIFY changed FINAL)
  Q_PROPERTY(ambrel::UsageFace codexTile READ codexTile NOTIFY changed FINAL)

 public:
  struct Seams {
    Background background;
    std::function<Instant()> now;
    PresentCalendar calendar;
    AgentFolders folders = {};
  };

  // dataFolder: where the program keeps its own files.
  AIUsageModel(const std::filesystem::path& home, const std::filesystem::path& dataFolder, Seams seams,
               QObject* parent = nullptr);

  // Begins a pass now and one each minute from then on; when called again, does nothing.
  void start();
  // Begins a pass, unless one is under way.
  void refresh();

  const ClaudeUsageSnapshot& claude() const { return usage_.claude; }
  const std::optional<CodexUsage::Limits>& codex() const { return usage_.codex; }
  const std::optional<ClaudeLimits::Limits>& claudeLimits() const { return usage_.claudeLimits; }
  // The first pass has ended.
  bool hasLoaded() const { return hasLoaded_; }
  bool isStarted() const { return timer_.isActive(); }

  // As of the last pass.
  const UsageFace& claudeTile() const { return claudeTile_; }
  const UsageFace& codexTile() const { return codexTile_; }

 Q_SIGNALS:
  // A tile shows something else.
  void changed();

 private:
  void publish(AIUsage usage);
  void updateTiles();

  Seams seams_;
  std::shared_ptr<AIUsageReader> reader_;  // shared with the pass that is under way
  AIUsage usage_;
  bool hasLoaded_ = false;
  bool isRefreshing_ = false;
  QTimer timer_;
  UsageFace claudeTile_, codexTile_;
};

}  // namespace ambrel
