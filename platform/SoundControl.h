#pragma once
// The volume of the present output, and the microphone's switch.

#include <functional>
#include <optional>

namespace ambrel {

struct SoundLevel {
  double volume = 0;  // 0 to 1; above 1 where it is amplified
  bool isMuted = false;
  friend bool operator==(const SoundLevel&, const SoundLevel&) = default;
};

// Main thread. No call waits: what was read last is known, what is set is on its way. The sound server is asked only
// while somebody listens.
class SoundControl {
 public:
  virtual ~SoundControl() = default;

  // `handler` is called on the main thread when `output` or `microphone` has another answer, also when another program
  // made the change. An empty one ends the connection, and both are absent from then on.
  virtual void setChangeHandler(std::function<void()> handler) = 0;

  // Absent without a sound server, before it has answered, and where no such device is connected.
  virtual std::optional<SoundLevel> output() const = 0;
  virtual std::optional<SoundLevel> microphone() const = 0;

  // Nothing happens where the device is absent.
  virtual void setOutputVolume(double volume) = 0;  // kept to 0 to 1
  virtual void setOutputMuted(bool isMuted) = 0;
  virtual void setMicrophoneMuted(bool isMuted) = 0;
};

}  // namespace ambrel
