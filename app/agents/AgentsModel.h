#pragma once
// The sessions of the user's agents, polled off the main thread and published when they differ.

#include <QtQml/qqmlregistration.h>
#include <filesystem>
#include <functional>
#include <memory>

#include "app/agents/AgentFace.h"
#include "app/base/Background.h"
#include "app/base/GadgetListModel.h"
#include "core/agents.h"
#include "core/agents/AgentTransitions.h"
#include "core/base/Calendar.h"
#include "platform/Notifications.h"
#include "platform/Workspace.h"

namespace ambrel {

class AppSettings;

class AgentsModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::RowList* rows READ rows CONSTANT FINAL)
  Q_PROPERTY(ambrel::AgentsFace face READ face NOTIFY changed FINAL)

 public:
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
  RowList* rows() { return &rows_; }
  const AgentsFace& face() const { return face_; }

  // Brings the session's tool forward, or opens it; the conversation itself is not addressed.
  Q_INVOKABLE void openSession(const QString& id);

 Q_SIGNALS:
  // What is shown, and the sessions themselves.
  void changed();
  void sessionsChanged();
  // A session went from working to finished.
  void sessionFinished();

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
  GadgetListModel<AgentFace> rows_;
  AgentsFace face_;
  bool isRefreshing_ = false;
  bool hasLoadedOnce_ = false;
};

}  // namespace ambrel
