#include "platform/linux/services/PulseConnection.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace ambrel {
namespace {

// While there is no server: it may start later in the session.
constexpr std::chrono::milliseconds longestRetry{10'000};
constexpr const char* present = "@DEFAULT_SINK@";
constexpr const char* presentInput = "@DEFAULT_SOURCE@";
// What the server makes up while no device is connected.
constexpr std::string_view nullDevice = "auto_null";

class Locked {
 public:
  explicit Locked(pa_threaded_mainloop* loop) : loop_(loop) { pa_threaded_mainloop_lock(loop_); }
  ~Locked() { pa_threaded_mainloop_unlock(loop_); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;

 private:
  pa_threaded_mainloop* loop_;
};

double fraction(pa_volume_t volume) { return static_cast<double>(volume) / PA_VOLUME_NORM; }

}  // namespace

PulseConnection::PulseConnection(std::string server, std::chrono::milliseconds retry, std::function<void()> changed)
    : server_(std::move(server)), changed_(std::move(changed)), firstRetry_(retry), nextRetry_(retry) {
  loop_ = pa_threaded_mainloop_new();
  if (!loop_) return;
  pa_threaded_mainloop_set_name(loop_, "sound");
  connect();
  if (pa_threaded_mainloop_start(loop_) != 0) {
    disconnect();
    pa_threaded_mainloop_free(std::exchange(loop_, nullptr));
  }
}

PulseConnection::~PulseConnection() {
  if (!loop_) return;
  pa_threaded_mainloop_stop(loop_);
  // The thread has ended: nothing else touches these now.
  if (retry_) pa_threaded_mainloop_get_api(loop_)->time_free(retry_);
  disconnect();
  pa_threaded_mainloop_free(loop_);
}

PulseConnection::State PulseConnection::state() const {
  const std::scoped_lock lock(mutex_);
  return state_;
}

template <typename Change>
void PulseConnection::publish(Change change) {
  {
    const std::scoped_lock lock(mutex_);
    State next = state_;
    change(next);
    if (next == state_) return;
    state_ = next;
  }
  changed_();
}

void PulseConnection::connect() {
  pa_proplist* properties = pa_proplist_new();
  pa_proplist_sets(properties, PA_PROP_APPLICATION_NAME, "Tilebay");
  context_ = pa_context_new_with_proplist(pa_threaded_mainloop_get_api(loop_), nullptr, properties);
  pa_proplist_free(properties);
  if (!context_) return;
  pa_context_set_state_callback(
      context_, [](pa_context*, void* self) { static_cast<PulseConnection*>(self)->contextChanged(); }, this);
  if (pa_context_connect(context_, server_.empty() ? nullptr : server_.c_str(), PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
    connectLater();
}

void PulseConnection::disconnect() {
  if (!context_) return;
  pa_context_set_state_callback(context_, nullptr, nullptr);
  pa_context_set_subscribe_callback(context_, nullptr, nullptr);
  pa_context_disconnect(context_);
  pa_context_unref(std::exchange(context_, nullptr));
}

void PulseConnection::connectLater() {
  if (retry_) return;
  timeval due{};
  pa_timeval_add(pa_gettimeofday(&due), static_cast<pa_usec_t>(nextRetry_.count()) * PA_USEC_PER_MSEC);
  nextRetry_ = std::min(nextRetry_ * 2, longestRetry);
  pa_mainloop_api* api = pa_threaded_mainloop_get_api(loop_);
  retry_ = api->time_new(
      api, &due,
      [](pa_mainloop_api* loop, pa_time_event* event, const timeval*, void* data) {
        auto& self = *static_cast<PulseConnection*>(data);
        loop->time_free(event);
        self.retry_ = nullptr;
        self.disconnect();
        self.connect();
      },
      this);
}

bool PulseConnection::isReady() const { return context_ && pa_context_get_state(context_) == PA_CONTEXT_READY; }

void PulseConnection::contextChanged() {
  const pa_context_state_t state = pa_context_get_state(context_);
  if (state == PA_CONTEXT_FAILED || state == PA_CONTEXT_TERMINATED) {
    pendingSets_ = 0;
    publish([](State& next) { next = {}; });
    connectLater();
  }
  if (state != PA_CONTEXT_READY) return;
  nextRetry_ = firstRetry_;
  pa_context_set_subscribe_callback(
      context_,
      [](pa_context*, pa_subscription_event_type_t, uint32_t, void* self) {
        static_cast<PulseConnection*>(self)->refresh();
      },
      this);
  constexpr auto watched = static_cast<pa_subscription_mask_t>(PA_SUBSCRIPTION_MASK_SINK | PA_SUBSCRIPTION_MASK_SOURCE |
                                                               PA_SUBSCRIPTION_MASK_SERVER);
  sent(pa_context_subscribe(context_, watched, nullptr, nullptr));
  refresh();
}

void PulseConnection::sent(pa_operation* operation) {
  if (operation) pa_operation_unref(operation);
}

void PulseConnection::refresh() {
  if (!isReady() || pendingSets_ > 0) return;
  // The last answer, or the refusal, has no device.
  sent(pa_context_get_sink_info_by_name(
      context_, present,
      [](pa_context*, const pa_sink_info* sink, int end, void* self) {
        if (end <= 0) static_cast<PulseConnection*>(self)->sinkTold(end == 0 ? sink : nullptr);
      },
      this));
  sent(pa_context_get_source_info_by_name(
      context_, presentInput,
      [](pa_context*, const pa_source_info* source, int end, void* self) {
        if (end <= 0) static_cast<PulseConnection*>(self)->sourceTold(end == 0 ? source : nullptr);
      },
      this));
}

void PulseConnection::sinkTold(const pa_sink_info* sink) {
  if (pendingSets_ > 0) return;
  std::optional<SoundLevel> level;
  if (sink && sink->name != nullDevice) {
    const bool isAnother = sink->index != sink_ || sink->volume.channels != channels_.channels;
    if (isAnother || pa_cvolume_max(&sink->volume) != PA_VOLUME_MUTED) channels_ = sink->volume;
    sink_ = sink->index;
    level = {.volume = fraction(pa_cvolume_max(&sink->volume)), .isMuted = sink->mute != 0};
  }
  publish([&](State& next) { next.output = level; });
}

void PulseConnection::sourceTold(const pa_source_info* source) {
  if (pendingSets_ > 0) return;
  std::optional<SoundLevel> level;
  // A computer without a microphone has as its input what its output plays.
  if (source && source->monitor_of_sink == PA_INVALID_INDEX)
    level = {.volume = fraction(pa_cvolume_max(&source->volume)), .isMuted = source->mute != 0};
  publish([&](State& next) { next.microphone = level; });
}

void PulseConnection::setTold() {
  pendingSets_ = std::max(0, pendingSets_ - 1);
  refresh();
}

void PulseConnection::setOutputVolume(double volume) {
  if (!loop_) return;
  const Locked lock(loop_);
  if (!isReady() || !state().output) return;
  volume = std::clamp(volume, 0.0, 1.0);
  // The balance between the channels stays.
  pa_cvolume channels = channels_;
  pa_cvolume_scale(&channels, static_cast<pa_volume_t>(volume * PA_VOLUME_NORM + 0.5));
  ++pendingSets_;
  sent(pa_context_set_sink_volume_by_name(
      context_, present, &channels,
      [](pa_context*, int, void* self) { static_cast<PulseConnection*>(self)->setTold(); }, this));
  publish([&](State& next) { next.output->volume = volume; });
}

void PulseConnection::setOutputMuted(bool isMuted) {
  if (!loop_) return;
  const Locked lock(loop_);
  if (!isReady() || !state().output) return;
  ++pendingSets_;
  sent(pa_context_set_sink_mute_by_name(
      context_, present, isMuted, [](pa_context*, int, void* self) { static_cast<PulseConnection*>(self)->setTold(); },
      this));
  publish([&](State& next) { next.output->isMuted = isMuted; });
}

void PulseConnection::setMicrophoneMuted(bool isMuted) {
  if (!loop_) return;
  const Locked lock(loop_);
  if (!isReady() || !state().microphone) return;
  ++pendingSets_;
  sent(pa_context_set_source_mute_by_name(
      context_, presentInput, isMuted,
      [](pa_context*, int, void* self) { static_cast<PulseConnection*>(self)->setTold(); }, this));
  publish([&](State& next) { next.microphone->isMuted = isMuted; });
}

}  // namespace ambrel
