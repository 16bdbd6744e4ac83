#include "ext-data-control-v1-client-protocol.h"

#include "platform/wayland/DataControlOver.h"

namespace ambrel {
namespace {

AMBREL_DATA_CONTROL_NAMES(ExtNames, ext_data_control);

}  // namespace

std::unique_ptr<DataControl> openExtDataControl(WaylandConnection& connection) {
  return DataControlOver<ExtNames>::open(connection);
}

}  // namespace ambrel
