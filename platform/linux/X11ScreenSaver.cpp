#include "platform/linux/X11ScreenSaver.h"

#include <xcb/screensaver.h>

#include "platform/linux/X11Connection.h"

namespace ambrel {

bool X11ScreenSaver::suspend(bool isSuspended) {
  if (!connection_ || connection_->isBroken()) return false;
  xcb_connection_t* const xcb = connection_->xcb();
  const auto* extension = xcb_get_extension_data(xcb, &xcb_screensaver_id);
  if (!extension || !extension->present) return false;
  // The request came with version 1.1.
  const XcbPtr<xcb_screensaver_query_version_reply_t> version(
      xcb_screensaver_query_version_reply(xcb, xcb_screensaver_query_version(xcb, 1, 1), nullptr));
  connection_->repliesWereRead();
  if (!version || version->server_major_version < 1 ||
      (version->server_major_version == 1 && version->server_minor_version < 1))
    return false;
  xcb_screensaver_suspend(xcb, isSuspended ? 1 : 0);
  connection_->flush();
  return true;
}

}  // namespace ambrel
