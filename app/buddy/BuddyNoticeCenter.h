#pragma once
// Collects the signals, evaluates the rules every ten seconds, and shows the result in the bubble, in the inbox and in
// the character's pose. It also performs the actions that the user picks.

#include <QtQml/qqmlregistration.h>
#include <functional>

#include "app/base/GadgetListModel.h"
#include "app/base/Presentation.h"
#include "app/base/TimedModel.h"
#include "app/buddy/Buddy.h"
#include "app/buddy/BuddyInboxFace.h"
#include "core/base/PresentCalendar.h"

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
  Q_PROPERTY(ambrel::RowList* notes READ notes CONSTANT FINAL)
  Q_PROPERTY(ambrel::BuddyInboxFace inbox READ inbox NOTIFY inboxChanged FINAL)
  // The bubble is shown. Its texts stay while it fades out.
  Q_PROPERTY(bool hasBubble READ hasBubble NOTIFY bubbleChanged FINAL)
  Q_PROPERTY(ambrel::BuddyNoticeText bubble READ bubbleText NOTIFY bubbleChanged FINAL)
  // How many more notices wait.
  Q_PROPERTY(int bubbleMore READ bubbleMore NOTIFY bubbleChanged FINAL)
  // What has the keyboard focus in the bubble: its actions, then "more" if there are more, then closing; else -1.
  Q_PROPERTY(int choice READ choice NOTIFY choiceChanged FINAL)

 public:
  static constexpr Seconds peekLength{8}, reactionLength{6};

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

  // `gather` adds another model's signals to each evaluation.
  void addSignals(std::function<void(BuddySignals&)> gather) { gatherers_.push_back(std::move(gather)); }
  // A phase of the focus timer ended; the next evaluation reports it.
  void phaseEnded(BuddySignals::PhaseEnd phase) { speech_.phaseEnded = phase; }
  // An agent has finished: Buddy looks happy, even if no notice follows.
  void sessionFinished();
  // Adds a notice from outside the rules to the bubble and the inbox.
  void post(const BuddyNotice& notice);
  // Whether the licence allows Buddy; without it he says nothing.
  void setAllowed(bool isAllowed);
  // A panel of the bar is open, or a window in full screen is in front: the bubble waits.
  void setInTheWay(bool isInTheWay);
  // Opening the inbox marks its notices as read.
  void setInboxOpen(bool isOpen);
  void perform(const BuddyAction& action, const BuddyNotice& notice);
  BuddyPolicy policy() const;

  Buddy* buddy() { return &buddy_; }
  RowList* notes() { return &notes_; }
  const BuddyInboxFace& inbox() const { return inbox_; }
  const BuddySpeech& speech() const { return speech_; }
  bool hasBubble() const { return speech_.bubble.isShown; }
  BuddyNoticeText bubbleText() const;
  int bubbleMore() const { return static_cast<int>(speech_.bubble.queue.pending.size()); }
  int choice() const { return speech_.bubble.choice ? static_cast<int>(*speech_.bubble.choice) : -1; }

  // Presses a button of the bubble or of an inbox row, by its index.
  Q_INVOKABLE void performInBubble(int action);
  Q_INVOKABLE void performInInbox(const QString& key, int action);
  // A click on the bubble outside its buttons: the first action other than a snooze, or else the inbox.
  Q_INVOKABLE void answerBubble();
  Q_INVOKABLE void closeBubble();
  Q_INVOKABLE void openInbox() { Q_EMIT inboxAsked(); }
  Q_INVOKABLE void clearInbox();
  Q_INVOKABLE void markRead();
  // The bubble stays while the pointer or the keyboard focus is on it.
  Q_INVOKABLE void setPointed(bool pointed);
  Q_INVOKABLE void setReached(bool reached);
  Q_INVOKABLE void moveChoice(int by);
  Q_INVOKABLE void performChoice();

  // Evaluates the rules once and shows the result.
  void evaluate(Instant now);

  std::optional<Instant> due() const override { return speech_.due(); }
  void tick(Instant now) override;
  void clockMoved(Seconds by, Instant now) override;
  void zoneChanged(Instant now) override;

 Q_SIGNALS:
  void bubbleChanged();
  void choiceChanged();
  void inboxChanged();
  // The bar got the keyboard while a bubble is shown: Buddy's tile takes the focus.
  void keyboardOffered();
  // Requests to the program: bring the bar out so that the bubble can point at the tile, and let it hide afterwards.
  void peekAsked(ambrel::Seconds length);
  void peekOver();
  void inboxAsked();
  void diskCleanupAsked();
  void linkAsked(const QString& url);
  void problemFound(const QString& title, const QString& detail);

 private:
  std::set<AgentKind> agentsInFront() const;
  void frontChanged();
  using Act = std::function<void(Instant now)>;
  // All changes of the speech go through these two, which compare before and after and emit the signals.
  void changeBubble(const Act& act);
  void change(const Act& act);
  void stir();
  void updateInbox(Instant now);

  Seams seams_;
  Buddy buddy_;
  BuddySpeech speech_;
  GadgetListModel<InboxRow, &InboxRow::key> notes_;
  BuddyInboxFace inbox_;
  std::vector<std::function<void(BuddySignals&)>> gatherers_;
  bool isAllowed_ = true;
};

}  // namespace ambrel
