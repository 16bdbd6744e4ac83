#pragma once
// When a service on the network is asked: the regular rhythm, what follows a failure, and what waits while nobody
// looks. Requests themselves are the caller's.

#include <optional>

#include "core/base/Instant.h"

namespace ambrel {

// Why there is no answer.
enum class FetchFailure {
  unreached,  // no server was reached; perhaps the network is not there
  refused,    // the server is asked too often
  bad         // anything else that it said
};

struct AskRhythm {
  std::chrono::seconds interval;  // between two regular requests
  // Lengthens every pause: the programs that start at nine are not to ask all at once for the rest of the day.
  double stretch = 1;
  // False: the desktop says that there is no network, and will say when it is back.
  bool isOnline = true;
};

// When one service was asked, and when it is next.
struct AskTimes {
  std::optional<Instant> askedAt{};  // the last time
  std::optional<Instant> nextAt{};   // absent before the first request
  bool hasAnswer = false;            // there is something to show
  int failures = 0;                  // in a row, and alike
  FetchFailure last = FetchFailure::bad;
  friend bool operator==(const AskTimes&, const AskTimes&) = default;

  bool isDue(Instant now) const { return nextAt && *nextAt <= now; }
  void answered();
  // The pause that follows. `wait`: how long the server wants to be left alone, 0 if it does not say.
  Seconds failed(FetchFailure kind, Seconds wait, const AskRhythm& rhythm);
  // The network is back: what was not reached is asked for again.
  void networkReturned(Instant now);
  // Networks need a moment to come back after a sleep.
  void slept(Instant now);
  void clockMoved(Seconds by);
};

// How long to wait after that many failures in a row, of which `last` is the last. Trying again where no server was
// reached burdens nobody, and nothing else may tell that the network is back. After a bad answer the next regular
// request is soon enough; with nothing to show the first tries come quickly and then ever later.
std::chrono::seconds retryPause(int failures, FetchFailure last, bool hasAnswer, std::chrono::seconds interval);

// Of one service. The functions that are [[nodiscard]] say whether to ask now.
class AskSchedule {
 public:
  // `jitter` lengthens every pause by a share of it.
  explicit AskSchedule(std::chrono::seconds interval, double jitter = 0) : rhythm_{interval, 1 + jitter} {}

  const AskTimes& times() const { return times_; }
  bool isWanted() const { return isWanted_; }

  // Whether anybody looks. Nothing is asked for otherwise.
  [[nodiscard]] bool setWanted(bool isWanted, Instant now);
  // At once; while nobody looks, later.
  [[nodiscard]] bool refresh(Instant now);
  [[nodiscard]] bool tick(Instant now);
  // The next moment at which `tick` has something to ask for.
  std::optional<Instant> due() const;
  // Something else is wanted: there are no answers yet.
  [[nodiscard]] bool restart(Instant now);
  // An answer is there from an earlier run of the program.
  void kept(Instant askedAt);

  void answered() { times_.answered(); }
  void failed(FetchFailure kind, Seconds wait, Instant now);
  void setOnline(bool isOnline, Instant now);
  void networkReturned(Instant now) { times_.networkReturned(now); }
  void slept(Instant now) { times_.slept(now); }
  void clockMoved(Seconds by) { times_.clockMoved(by); }

 private:
  AskRhythm rhythm_;
  bool isWanted_ = false;
  AskTimes times_;
};

}  // namespace ambrel
