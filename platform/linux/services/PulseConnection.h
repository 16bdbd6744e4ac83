#pragma once

#include <chrono>
#include <functional>
#include <mutex>
#include <optional>
#include <pulse/pulseaudio.h>
#include <string>

#include "platform/SoundControl.h"

namespace ambrel {

// The present output and input of a sound server, which may come and go. Its thread is libpulse's.
class PulseConnection {
 public:
  struct State {
    std::optional<SoundLevel> output, microphone;
    friend bool operator==(const State&, const State&) = default;
  };

  // retry: until the first new attempt while there is no server; each further one takes twice as long, up to ten
  // seconds. `changed` is called on the thread of the connection.
  PulseConnection(std::string server, std::chrono::milliseconds retry, std::function<void()> changed);
  ~PulseConnection();
  PulseConnection(const PulseConnection&) = delete;
  PulseConnection& operator=(const PulseConnection&) = delete;

  State state() const;
  void setOutputVolume(double volume);
  void setOutputMuted(bool isMuted);
  void setMicrophoneMuted(bool isMuted);

 private:
  void connect();
  void disconnect();
  void connectLater();
  void contextChanged();
  void refresh();
  void sinkTold(const pa_sink_info* sink);
  void sourceTold(const pa_source_info* source);
  void sent(pa_operation* operation);
  void setTold();
  bool isReady() const;
  template <typename Change>
  void publish(Change change);

  std::string server_;
  std::function<void()> changed_;
  pa_threaded_mainloop* loop_ = nullptr;
  pa_context* context_ = nullptr;
  pa_time_event* retry_ = nullptr;
  std::chrono::milliseconds firstRetry_, nextRetry_;
  int pendingSets_ = 0;  // until they are through, the server's figures are older than ours
  // Of the output's sink as they were last heard: silence has no balance.
  pa_cvolume channels_{};
  uint32_t sink_ = PA_INVALID_INDEX;
  mutable std::mutex mutex_;
  State state_;
};

}  // namespace ambrel
