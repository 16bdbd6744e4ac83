#pragma once
// The sessions of the user's agents, polled off the main thread and published when they differ.

#include <QtQml/qqmlregistration.h>
#include <filesystem>
#include <functional>
#include <memory>

#include "app/agents/AgentFace.h"
#include "app/base/Background.h"
#include "app/base/RecordListModel.h"
#include "core/agents.h"
#include "core/agents/AgentTransitions.h"
#include "core/base/Calendar.h"
#include "platform/Notifications.h"
#include "platform/Workspace.h"

namespace ambrel {

class AppSettings;

class AgentsModel : public RecordListModel<AgentFace, QString> {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(int needsInputCount READ needsInputCount NOTIFY sessionsChanged)
  Q_PROPERTY(int workingCount READ workingCount NOTIFY sessionsChanged)
  Q_PROPERTY(int finishedCount READ finishedCount NOTIFY sessionsChanged)
  Q_PROPERTY(int count READ count NOTIFY sessionsChanged)
  Q_PROPERTY(bool hasLoadedOnce READ hasLoadedOnce NOTIFY loaded)
  // The session that comes first: the most urgent one, and of these the newest.
  Q_PROPERTY(ambrel::AgentFace first READ first NOTIFY firstChanged)
  // One sentence for a tooltip and a screen reader.
  Q_PROPERTY(QString summary READ summary NOTIFY sessionsChanged)

 public:
  enum Role {
    IdRole = Qt::UserRole,
    KindRole,
    SymbolRole,
    IconRole,
    TitleRole,
    SubtitleRole,
    StatusRole,
    StatusTextRole,
    AgeRole
  };
  Q_ENUM(Role)

  static constexpr Seconds pollInterval{3};

  struct Seams {
    Background background;
    Notifications& notifications;
    Workspace& workspace;
    std::function<Instant()> now;
    // Where the picture of the kind's application is; empty when it has none.
    std::function<QString(std::string_view bundleID)> icon = {};
  };

  AgentsModel(AppSettings& settings, AgentReaders readers, std::filesystem::path home, Calendar calendar, Seams seams,
              QObject* parent = nullptr);

  // Starts one poll unless one is running; with agents switched off, empties the list.
  void refresh();

  const std::vector<AgentSession>& sessions() const { return sessions_; }
  int needsInputCount() const { return counts_.needsInput; }
  int workingCount() const { return counts_.working; }
  int finishedCount() const { return counts_.finished; }
  int count() const { return static_cast<int>(sessions_.size()); }
  bool hasLoadedOnce() const { return hasLoadedOnce_; }
  AgentFace first() const { return first_; }
  QString summary() const;

  // Called for each session that went from working to finished.
  std::function<void()> onSessionFinished;

  // Brings the session's tool forward, or opens it; the conversation itself is not addressed.
  Q_INVOKABLE void openSession(const QString& id);

  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 Q_SIGNALS:
  void sessionsChanged();
  void firstChanged();
  void loaded();

 protected:
  QString keyOf(const AgentFace& face) const override { return face.id; }

 private:
  void apply(std::vector<AgentSession> sessions, Instant now);
  void publish(std::vector<AgentSession> sessions, Instant now);

  AppSettings& settings_;
  // Shared with the job in flight, which may outlive this object at the end of the process.
  std::shared_ptr<const AgentReaders> readers_;
  std::filesystem::path home_;
  Calendar calendar_;
  Seams seams_;
  std::vector<AgentSession> sessions_;
  // When the rows were made, and when the age in one of them changes.
  Instant publishedAt_ = Instant::min(), nextAgeAt_ = Instant::min();
  AgentCounts counts_;
  AgentFace first_;
  bool isRefreshing_ = false;
  bool hasLoadedOnce_ = false;
};

}  // namespace ambrel
