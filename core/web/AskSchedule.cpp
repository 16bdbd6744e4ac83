#include "core/web/AskSchedule.h"

#include <algorithm>
#include <utility>

namespace ambrel {
namespace {

constexpr std::chrono::seconds wakingPause{10};
// Some desktops never say that the network is back.
constexpr std::chrono::seconds longestOffline{900};

}  // namespace

void AskTimes::answered() {
  failures = 0;
  hasAnswer = true;
}

Seconds AskTimes::failed(FetchFailure kind, Seconds wait, const AskRhythm& rhythm) {
  // A server that was not reached and one that refuses are different stories.
  failures = failures > 0 && last == kind ? failures + 1 : 1;
  last = kind;
  const Seconds pause = kind == FetchFailure::unreached && !rhythm.isOnline
                            ? std::min(rhythm.interval, longestOffline)
                            : retryPause(failures, kind, hasAnswer, rhythm.interval);
  return std::max(wait, pause) * rhythm.stretch;
}

void AskTimes::networkReturned(Instant now) {
  if (failures > 0 && last == FetchFailure::unreached) nextAt = now;
}

void AskTimes::slept(Instant now) {
  if (nextAt) nextAt = std::max<Instant>(*nextAt, now + wakingPause);
}

void AskTimes::clockMoved(Seconds by) {
  for (std::optional<Instant>* time : {&askedAt, &nextAt})
    if (*time) *time = advanced(**time, by);
}

bool AskSchedule::setWanted(bool isWanted, Instant now) {
  if (isWanted == isWanted_) return false;
  isWanted_ = isWanted;
  return isWanted_ && (!times_.nextAt || times_.isDue(now)) && refresh(now);
}

bool AskSchedule::refresh(Instant now) {
  if (!isWanted_) {
    times_.nextAt = now;
    return false;
  }
  times_.askedAt = now;
  times_.nextAt = advanced(now, Seconds(rhythm_.interval) * rhythm_.stretch);
  return true;
}

bool AskSchedule::tick(Instant now) { return isWanted_ && times_.isDue(now) && refresh(now); }

std::optional<Instant> AskSchedule::due() const {
  // What becomes due while nobody looks is asked for as soon as somebody does.
  return isWanted_ ? times_.nextAt : std::nullopt;
}

bool AskSchedule::restart(Instant now) {
  times_ = {};
  return refresh(now);
}

void AskSchedule::kept(Instant askedAt) {
  times_ = {
      .askedAt = askedAt, .nextAt = advanced(askedAt, Seconds(rhythm_.interval) * rhythm_.stretch), .hasAnswer = true};
}

void AskSchedule::failed(FetchFailure kind, Seconds wait, Instant now) {
  times_.nextAt = advanced(now, times_.failed(kind, wait, rhythm_));
}

void AskSchedule::setOnline(bool isOnline, Instant now) {
  if (std::exchange(rhythm_.isOnline, isOnline) != isOnline && isOnline) networkReturned(now);
}

std::chrono::seconds retryPause(int failures, FetchFailure last, bool hasAnswer, std::chrono::seconds interval) {
  using std::chrono::seconds;
  if (failures <= 0) return interval;
  const auto doubled = [failures](seconds first, seconds most) {
    return std::min(most, first * (1 << std::min(failures - 1, 10)));
  };
  switch (last) {
    case FetchFailure::unreached:
      return doubled(seconds(60), seconds(300));
    case FetchFailure::refused:
      return doubled(interval, interval * 8);
    case FetchFailure::bad:
      return hasAnswer ? interval : doubled(seconds(60), interval);
  }
  return interval;
}

}  // namespace ambrel
