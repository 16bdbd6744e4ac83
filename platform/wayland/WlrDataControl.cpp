#include "wlr-data-control-unstable-v1-client-protocol.h"

#include "platform/wayland/DataControlOver.h"

namespace ambrel {
namespace {

AMBREL_DATA_CONTROL_NAMES(WlrNames, zwlr_data_control);

}  // namespace

std::unique_ptr<DataControl> openWlrDataControl(WaylandConnection& connection) {
  return DataControlOver<WlrNames>::open(connection);
}

}  // namespace ambrel
