#pragma once
// The one speech bubble: what it shows, when it closes, and which of its choices the keyboard is on. It keeps no timer
// and draws nothing: its owner compares it before and after, and calls `tick` at `closesAt`.

#include <unordered_set>

#include "core/buddy/BuddyBubbleQueue.h"

namespace ambrel {

struct BuddyBubble {
  static constexpr Seconds length{8};
  // A bubble that the pointer or the keyboard has held stays as long again as it takes to come back.
  static constexpr Seconds grace{2};

  // What the keyboard can choose in the bubble: its actions, then "more" if there are more, then closing.
  struct Choice {
    enum class Kind { action, more, close } kind = Kind::close;
    std::size_t action = 0;
    friend bool operator==(const Choice&, const Choice&) = default;
  };

  BuddyBubbleQueue queue;
  // What it shows, or showed last: its texts stay while it goes.
  std::optional<BuddyNotice> shown;
  bool isShown = false;
  int showings = 0;                   // how often a notice has reached the screen
  std::optional<Instant> closesAt;    // absent while it stays: an urgent one until it is answered
  std::optional<std::size_t> choice;  // while the keyboard is on it

  // A notice to be said. One that is shown or waits already is not said twice.
  void offer(const BuddyNotice& notice, Instant now);
  // What has been offered comes up, if nothing is in the way. Called once for all that was offered together.
  void present(Instant now);
  void tick(Instant now);
  // The user has closed or answered it: the next one comes.
  void close(Instant now);
  // The causes of these have ended. What the user holds stays until it is let go.
  void withdraw(const std::unordered_set<std::string>& ended, Instant now);
  // The user's filter has changed: what it no longer allows goes, shown or waiting.
  void apply(const BuddyPolicy& policy, Instant now);
  // While something is in the way, such as an open panel, the bubble waits. The inbox is an answer to all that is shown
  // and waits.
  void setInTheWay(bool isInTheWay, Instant now);
  void setInboxOpen(bool isOpen, Instant now);
  bool isInboxOpen() const { return isInboxOpen_; }

  // While the pointer or the keyboard is on it, it stays.
  void setPointed(bool isPointed, Instant now);
  void setReached(bool isReached, Instant now);
  // Around, from the last to the first.
  void moveChoice(int by);
  std::vector<Choice> choices() const;

  // After the clock was set, by so much.
  void clockMoved(Seconds by);

  friend bool operator==(const BuddyBubble&, const BuddyBubble&) = default;

 private:
  bool isHeld() const { return isPointed_ || isReached_; }
  void advance(Instant now);
  void hide();
  void closeIn(Seconds span, Instant now);
  void resetChoice();
  void keepChoice();

  bool currentWasShown_ = false;  // queue.current has reached the screen
  bool hasEnded_ = false;         // its cause, while the user held it
  bool isInboxOpen_ = false, isInTheWay_ = false;
  bool isPointed_ = false, isReached_ = false;
};

}  // namespace ambrel
