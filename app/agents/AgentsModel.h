#pragma once
// The sessions of the user's agents, polled off the main thread and published when they differ.

#include <QtQml/qqmlregistration.h>
#include <filesystem>
#include <functional>
#include <memory>

#include "app/agents/AgentFace.h"
#include "app/base/Background.h"
#include "app/base/GadgetListModel.h"
#include "app/base/Presentation.h"
#include "core/agents.h"
#include "core/agents/AgentTransitions.h"
#include "core/agents/attention/AgentPoll.h"
#include "core/base/Calendar.h"
#include "platform/FolderWatch.h"
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
  // Between two polls while nothing works or waits, and every change is told.
  static constexpr Seconds restingInterval{30};

  struct Seams {
    Background background;
    Notifications& notifications;
    Workspace& workspace;
    std::function<Instant()> now;
    // Where the picture of the kind's application is; empty when it has none.
    std::function<QString(std::string_view bundleID)> icon = {};
    FolderWatch* folders = nullptr;  // none: the polls alone
    DelayedStep later = {};          // with `folders`
  };

  AgentsModel(AppSettings& settings, AgentReaders readers, std::filesystem::path home, Calendar calendar, Seams seams,
              QObject* parent = nullptr);

  // Starts one poll unless one is running; with agents switched off, empties the list.
  void refresh();
  // Called every three seconds: refreshes, unless there is nothing to be seen.
  void poll();
  // Polls when something changes there, too. Several changes come to one poll.
  void follow(const std::vector<AgentTrace>& traces);

  const std::vector<AgentSession>& sessions() const { return sessions_; }
  RowList* rows() { return &rows_; }
  const AgentsFace& face() const { return face_; }

  // Brings the session's own window forward, where it is known; else its tool, or opens that.
  Q_INVOKABLE void openSession(const QString& id);
  // Its own window alone; where that is not on this desktop, says so. False: where it runs is not known.
  bool openOwnWindow(const std::string& id);
  // How the session's status is known: "Claude Code says so, 12s ago".
  Q_INVOKABLE QString origin(const QString& id) const;

 Q_SIGNALS:
  // What is shown, and the sessions themselves.
  void changed();
  void sessionsChanged();
  // A session came or went, or the status of one is another.
  void statusesChanged();
  // A session went from working to finished.
  void sessionFinished();
  void problemFound(const QString& title, const QString& detail);

 private:
  void apply(std::vector<AgentSession> sessions, Instant now);
  void publish(std::vector<AgentSession> sessions, Instant now);
  const AgentSession* session(std::string_view id) const;
  bool mayRest(Instant now) const;
  void heard(Seconds pause);
  void lookLater();

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
  // What changed since the last poll began asks for the next one: this long after that one.
  std::optional<Seconds> pause_;
  std::optional<Instant> lookedAt_;  // absent: what is there is not known
  int generation_ = 0;               // of the step that is to look
  bool isRefreshing_ = false;
  bool hasLoadedOnce_ = false;
};

}  // namespace ambrel
