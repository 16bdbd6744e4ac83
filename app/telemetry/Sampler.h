#pragma once
// One slow reading of the system: read off the main thread, at its interval, while it is wanted.

#include <QObject>
#include <QPointer>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "app/base/Background.h"
#include "core/base/Instant.h"
#include "core/telemetry/CounterRate.h"

namespace ambrel {

// What all samplers share.
class SamplerBase : public QObject {
  Q_OBJECT

 public:
  bool isUnavailable() const { return isUnavailable_; }
  bool isRunning() const { return isRunning_; }
  // Times are since boot: the wall clock can be set.
  std::optional<Seconds> lastRun() const { return lastRun_; }
  Seconds interval() const { return interval_; }

  // Reads when the interval has passed since the last time and no read is in flight.
  void poll(Seconds now) { poll(now, interval_); }
  // The same in another rhythm.
  void poll(Seconds now, Seconds interval);
  // Reads now; with a read in flight, as soon as that has come back.
  void refresh(Seconds now);

 Q_SIGNALS:
  // A read has come back.
  void sampled();

 protected:
  SamplerBase(Seconds interval, QObject* parent) : QObject(parent), interval_(interval) {}

  // Starts a read, whose end calls `finish`.
  virtual void start() = 0;
  // The reading before is too old to compare with, and what was drawn of it has a hole.
  virtual void forget() = 0;
  void finish(bool isThere);

 private:
  void run(Seconds now, Seconds interval);

  Seconds interval_;
  bool isUnavailable_ = false;
  bool isRunning_ = false;
  bool isWanted_ = false;
  std::optional<Seconds> lastRun_;
};

// `Raw` is what the reader gives, `Value` what is published. `read` runs off the main thread; when it gives nothing,
// the reading is unavailable until it gives something again. `combine` makes the value from the previous reading (if
// there is one) and the present one, which is how counters become rates; it may give none, and then the last value
// stays, unless it is from before a pause. `history` holds the newest `historyLength` values, oldest first; a pause
// empties it.
template <typename Raw, typename Value = Raw>
class Sampler final : public SamplerBase {
 public:
  using Read = std::function<std::optional<Raw>()>;
  using Combine = std::function<std::optional<Value>(const std::optional<Raw>& previous, const Raw& current)>;
  struct Plan {
    Seconds interval;
    std::size_t historyLength = 0;
    Read read;
    Combine combine = {};
    // The values are not on a time axis: a pause leaves them.
    bool keepsHistory = false;
  };

  Sampler(Plan plan, Background background, QObject* parent = nullptr)
      : SamplerBase(plan.interval, parent),
        historyLength_(plan.historyLength),
        read_(std::move(plan.read)),
        combine_(std::move(plan.combine)),
        keepsHistory_(plan.keepsHistory),
        background_(std::move(background)) {
    if constexpr (std::is_same_v<Raw, Value>) {
      if (!combine_) combine_ = [](const std::optional<Raw>&, const Raw& current) { return std::optional(current); };
    }
  }

  const std::optional<Value>& value() const { return value_; }
  const std::deque<Value>& history() const { return history_; }

 private:
  void start() override {
    auto result = std::make_shared<std::optional<Raw>>();
    background_([read = read_, result] { *result = read(); },
                [self = QPointer<Sampler>(this), result] {
                  if (self) self->publish(std::move(*result));
                });
  }

  void forget() override {
    previous_.reset();
    if (!keepsHistory_) history_.clear();
  }

  void publish(std::optional<Raw> raw) {
    std::optional<Value> next = raw ? combine_(previous_, *raw) : std::nullopt;
    if (next) {
      history_.push_back(*next);
      if (history_.size() > historyLength_) history_.pop_front();
    }
    if (next || !previous_ || !raw) value_ = std::move(next);
    previous_ = std::move(raw);
    finish(previous_.has_value());
  }

  std::size_t historyLength_;
  Read read_;
  Combine combine_;
  bool keepsHistory_;
  Background background_;
  std::optional<Value> value_;
  std::deque<Value> history_;
  std::optional<Raw> previous_;
};

}  // namespace ambrel
