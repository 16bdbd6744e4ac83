#pragma once
// Gathers what the rules look at, asks them every ten seconds, and shows what they say: in the one bubble, in the
// inbox, by the character. It carries out what the user picks.

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
  // The bubble is on the screen; its texts stay as they were when it goes.
  Q_PROPERTY(bool hasBubble READ hasBubble NOTIFY bubbleChanged FINAL)
  Q_PROPERTY(ambrel::BuddyNoticeText bubble READ bubbleText NOTIFY bubbleChanged FINAL)
  // How many notices wait behind it.
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

  // What the other models know goes into the signals of each evaluation.
  void addSignals(std::function<void(BuddySignals&)> gather) { gatherers_.push_back(std::move(gather)); }
  // A phase of the focus timer ended; the next evaluation tells of it.
  void phaseEnded(BuddySignals::PhaseEnd phase) { speech_.phaseEnded = phase; }
  // An agent has finished: he is pleased, whether or not there is something to say.
  void sessionFinished();
  // Something else that happened, for the bubble and the inbox alike.
  void post(const BuddyNotice& notice);
  // By the licence; without it he is silent.
  void setAllowed(bool isAllowed) { isAllowed_ = isAllowed; }
  // A panel of the bar is open: the bubble waits.
  void setPanelOpen(bool isOpen);
  // What has been seen in the inbox is new no longer.
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

  // The buttons of the bubble and of a row of the inbox, by their place.
  Q_INVOKABLE void performInBubble(int action);
  Q_INVOKABLE void performInInbox(const QString& key, int action);
  // A click on the bubble beside its buttons: the first action that is no snooze, else the inbox.
  Q_INVOKABLE void answerBubble();
  Q_INVOKABLE void closeBubble();
  Q_INVOKABLE void openInbox() { Q_EMIT inboxAsked(); }
  Q_INVOKABLE void clearInbox();
  Q_INVOKABLE void markRead();
  // While the pointer or the keyboard is on it, the bubble stays.
  Q_INVOKABLE void setPointed(bool pointed);
  Q_INVOKABLE void setReached(bool reached);
  Q_INVOKABLE void moveChoice(int by);
  Q_INVOKABLE void performChoice();

  // One evaluation of the rules, and what comes of it.
  void evaluate(Instant now);

  std::optional<Instant> due() const override { return speech_.due(); }
  void tick(Instant now) override;
  void clockMoved(Seconds by, Instant now) override;
  void zoneChanged(Instant now) override;

 Q_SIGNALS:
  void bubbleChanged();
  void choiceChanged();
  void inboxChanged();
  // The keyboard has come to the bar while a bubble shows: its tile takes it.
  void keyboardOffered();
  // For the program around him. The bar is to come out, so that his tile is there to point at, and may go when the
  // bubble is closed.
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
  // Whatever happens to what he says happens in one of these: what differs afterwards is carried out and told.
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
