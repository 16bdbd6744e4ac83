#pragma once
// Gathers what the rules look at, asks them every ten seconds, and shows what they say: in the one bubble, in the
// inbox, by the character. It carries out what the user picks.

#include <QtQml/qqmlregistration.h>
#include <functional>

#include "app/base/Presentation.h"
#include "app/base/TimedModel.h"
#include "app/buddy/Buddy.h"
#include "app/buddy/BuddyInboxModel.h"
#include "core/base/PresentCalendar.h"
#include "core/buddy/AgentWatch.h"
#include "core/buddy/BuddyBubble.h"
#include "core/buddy/BuddyInbox.h"
#include "core/buddy/BuddyNoticeEngine.h"

namespace ambrel {

class AgentsModel;
class AppSettings;
class UserDefaults;
class Workspace;

class BuddyNoticeCenter : public TimedModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::Buddy* buddy READ buddy CONSTANT FINAL)
  Q_PROPERTY(ambrel::BuddyInboxModel* inbox READ inbox CONSTANT FINAL)
  // The bubble is on the screen; its texts stay as they were when it goes.
  Q_PROPERTY(bool hasBubble READ hasBubble NOTIFY bubbleChanged FINAL)
  Q_PROPERTY(ambrel::BuddyNoticeText bubble READ bubbleText NOTIFY bubbleChanged FINAL)
  // How many notices wait behind it.
  Q_PROPERTY(int bubbleMore READ bubbleMore NOTIFY bubbleChanged FINAL)
  // What has the keyboard focus in the bubble: its actions, then "more" if there are more, then closing; else -1.
  Q_PROPERTY(int choice READ choice NOTIFY choiceChanged FINAL)
  // When Buddy is quiet, and what he holds back: for the foot of the inbox.
  Q_PROPERTY(QString quietText READ quietText NOTIFY quietTextChanged FINAL)

 public:
  static constexpr Seconds interval{10};
  static constexpr Seconds peekLength{8}, reactionLength{6};
  // Without anything happening he falls asleep.
  static constexpr Seconds sleepsAfter{300};

  struct Seams {
    AgentsModel& agents;
    AppSettings& settings;
    UserDefaults& defaults;
    Workspace& workspace;
    PresentCalendar calendar;
    std::function<Instant()> now;
    DelayedStep later;
  };
  explicit BuddyNoticeCenter(Seams seams, QObject* parent = nullptr);

  // What the other models know goes into the signals of each evaluation.
  void addSignals(std::function<void(BuddySignals&)> gather) { gatherers_.push_back(std::move(gather)); }
  // A phase of the focus timer ended; the next evaluation tells of it.
  void phaseEnded(BuddySignals::PhaseEnd phase) { pendingPhaseEnd_ = phase; }
  // An agent has finished: he is pleased, whether or not there is something to say.
  void sessionFinished();
  // Something else that happened, for the bubble and the inbox alike.
  void post(const BuddyNotice& notice);

  // Assigned by the program; without one nothing comes of it.
  std::function<bool()> isAllowed;         // by the licence
  std::function<bool()> isOtherPanelOpen;  // the bubble waits
  std::function<void(Seconds)> peekBar;    // so that his tile is there to point at
  std::function<void()> endPeek;           // that peek, when its bubble is closed
  std::function<void()> showInbox;
  std::function<void()> openDiskCleanup;
  std::function<void(const QString& url)> openLink;
  std::function<void(const QString& title, const QString& detail)> onProblem;

  // Another panel has opened or closed.
  void panelsChanged();
  // The inbox has opened or closed. What has been seen there is new no longer.
  void inboxOpened();
  void inboxClosed();
  void perform(const BuddyAction& action, const BuddyNotice& notice);
  BuddyPolicy policy() const;

  Buddy* buddy() { return &buddy_; }
  BuddyInboxModel* inbox() { return &inboxModel_; }
  const BuddyInbox& recent() const { return inbox_; }
  const std::vector<AgentWatch::DigestEntry>& digest() const { return digest_; }
  std::optional<Instant> digestSince() const { return digestSince_; }
  bool hasBubble() const { return bubble_.isShown; }
  const std::optional<BuddyNotice>& bubble() const { return bubble_.shown; }
  BuddyNoticeText bubbleText() const;
  int bubbleMore() const { return static_cast<int>(bubble_.queue.pending.size()); }
  int choice() const { return bubble_.choice ? static_cast<int>(*bubble_.choice) : -1; }
  QString quietText() const { return quietText_; }

  // The buttons of the bubble and of a row of the inbox, by their place.
  Q_INVOKABLE void performInBubble(int action);
  Q_INVOKABLE void performInInbox(const QString& key, int action);
  // A click on the bubble beside its buttons: the first action that is no snooze, else the inbox.
  Q_INVOKABLE void answerBubble();
  Q_INVOKABLE void closeBubble();
  Q_INVOKABLE void openInbox();
  Q_INVOKABLE void clearInbox();
  Q_INVOKABLE void markRead();
  // While the pointer or the keyboard is on it, the bubble stays.
  Q_INVOKABLE void setPointed(bool pointed);
  Q_INVOKABLE void setReached(bool reached);
  Q_INVOKABLE void moveChoice(int by);
  Q_INVOKABLE void performChoice();

  // One evaluation of the rules, and what comes of it.
  void evaluate(Instant now);

  std::optional<Instant> due() const override;
  void tick(Instant now) override;
  void clockMoved(Seconds by, Instant now) override;
  void zoneChanged(Instant now) override;

 Q_SIGNALS:
  void bubbleChanged();
  void choiceChanged();
  void quietTextChanged();
  // The keyboard has come to the bar while a bubble shows: its tile takes it.
  void keyboardOffered();

 private:
  BuddySignals gathered(Instant now);
  void frontChanged();
  void lookAtFront(Instant now);
  void storeSummaryDay();
  void offer(const std::vector<BuddyNotice>& notices, Instant now);
  // Whatever happens to the bubble happens in here: what differs afterwards is carried out and told.
  void change(const std::function<void()>& act);
  void updateSleep(const BuddySignals& signals, Instant now);
  void updateQuietText(Instant now);

  Seams seams_;
  Buddy buddy_;
  BuddyInboxModel inboxModel_;
  BuddyNoticeEngine engine_;
  AgentWatch watch_;
  BuddyBubble bubble_;
  BuddyInbox inbox_;
  std::vector<AgentWatch::DigestEntry> digest_;
  std::optional<Instant> digestSince_;
  std::optional<BuddySignals::PhaseEnd> pendingPhaseEnd_;
  std::vector<std::function<void(BuddySignals&)>> gatherers_;
  Instant next_, lastStir_;
  QString quietText_;
};

}  // namespace ambrel
