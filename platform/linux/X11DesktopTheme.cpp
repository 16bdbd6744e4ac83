#include "platform/linux/X11DesktopTheme.h"

#include <utility>

#include "core/workspace/XSettings.h"

namespace ambrel {

X11DesktopTheme::X11DesktopTheme(X11Connection* connection) : connection_(connection) {
  if (!connection_) return;
  // A new manager announces itself to the root window.
  connection_->selectRootEvents(XCB_EVENT_MASK_STRUCTURE_NOTIFY);
  watch_ = connection_->watch([this](const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
      case XCB_CLIENT_MESSAGE: {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        if (message.type == connection_->atom("MANAGER")) findManager();
        return;
      }
      case XCB_PROPERTY_NOTIFY:
        if (reinterpret_cast<const xcb_property_notify_event_t&>(event).window == manager_) refresh();
        return;
      case XCB_DESTROY_NOTIFY:
        if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == manager_) findManager();
        return;
      default:
        return;
    }
  });
  findManager();
}

void X11DesktopTheme::findManager() {
  const std::string selection = "_XSETTINGS_S" + std::to_string(connection_->screenNumber());
  const XcbPtr<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
      connection_->xcb(), xcb_get_selection_owner(connection_->xcb(), connection_->atom(selection.c_str())), nullptr));
  manager_ = owner ? owner->owner : xcb_window_t{XCB_WINDOW_NONE};
  if (manager_ != XCB_WINDOW_NONE) {
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection_->xcb(), manager_, XCB_CW_EVENT_MASK, &events);
    connection_->flush();
  }
  connection_->repliesWereRead();
  refresh();
}

void X11DesktopTheme::refresh() {
  std::string name;
  if (manager_ != XCB_WINDOW_NONE)
    name = textSetting(connection_->property(manager_, connection_->atom("_XSETTINGS_SETTINGS")), "Net/ThemeName")
               .value_or("");
  if (std::exchange(name_, name) != name && handler_) handler_();
}

}  // namespace ambrel
