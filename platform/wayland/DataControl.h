#pragma once
// The protocol by which a compositor lets a program look after the clipboard without a window in front:
// ext-data-control, or wlroots' own, from which that was made.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/base/Files.h"
#include "platform/wayland/WaylandConnection.h"

namespace ambrel {

class DataControl {
 public:
  // Someone pastes: the type's bytes are to be written to the descriptor, which is then to be closed.
  using Asked = std::function<void(const std::string& type, FileDescriptor to)>;

  // Null when the compositor offers neither protocol, has no seat, or does not answer in time. The connection has to
  // live longer.
  static std::unique_ptr<DataControl> open(WaylandConnection& connection, SteadyTime until);
  virtual ~DataControl() = default;

  // Called after a program has copied, we have, or the clipboard was cleared.
  std::function<void()> selectionChanged;
  // What the last copy offers, be it ours; absent when there is none.
  virtual const std::vector<std::string>* types() const = 0;
  // Asks for a type of what `types` tells of. What its owner writes can be read from the descriptor, without waiting.
  virtual FileDescriptor receive(const std::string& type) = 0;

  // Takes the clipboard. `asked` may be called also after another copy, by those who were about to paste.
  virtual void offer(const std::vector<std::string>& types, Asked asked) = 0;
  virtual void clear() = 0;
  // Nobody has copied since our last offer, as far as is known.
  virtual bool isOwner() const = 0;
};

// Null when the compositor does not have the protocol. Each exists where its description was there at build time.
std::unique_ptr<DataControl> openExtDataControl(WaylandConnection& connection);
std::unique_ptr<DataControl> openWlrDataControl(WaylandConnection& connection);

}  // namespace ambrel
