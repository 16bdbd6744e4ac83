#include "platform/wayland/DataControl.h"

namespace ambrel {

std::unique_ptr<DataControl> DataControl::open(WaylandConnection& connection, SteadyTime until) {
  std::unique_ptr<DataControl> made;
#ifdef AMBREL_EXT_DATA_CONTROL
  made = openExtDataControl(connection);
#endif
#ifdef AMBREL_WLR_DATA_CONTROL
  if (!made) made = openWlrDataControl(connection);
#endif
  if (!made) return nullptr;
  // What was copied before is told at once.
  bool isTold = false;
  connection.roundTrip([&isTold] { isTold = true; });
  return connection.turnUntil([&isTold] { return isTold; }, until) ? std::move(made) : nullptr;
}

}  // namespace ambrel
