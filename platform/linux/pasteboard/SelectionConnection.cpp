#include "platform/linux/pasteboard/SelectionConnection.h"

#include <algorithm>
#include <xcb/xfixes.h>

namespace ambrel {
namespace {

// Names are remembered, but not without end: an application may make up new ones with each copy.
constexpr std::size_t mostNames = 4096;
constexpr int longestName = 256;
constexpr std::uint32_t pieceWords = (1u << 20) / 4;

}  // namespace

std::unique_ptr<SelectionConnection> SelectionConnection::open(const std::string& display) {
  int screenNumber = 0;
  std::unique_ptr<SelectionConnection> made(
      new SelectionConnection(xcb_connect(display.empty() ? nullptr : display.c_str(), &screenNumber)));
  if (made->isBroken() || !made->prepare(screenNumber)) return nullptr;
  return made;
}

SelectionConnection::~SelectionConnection() { xcb_disconnect(connection_); }

bool SelectionConnection::prepare(int screenNumber) {
  const auto* extension = xcb_get_extension_data(connection_, &xcb_xfixes_id);
  if (extension == nullptr || extension->present == 0) return false;
  xfixesEvent_ = static_cast<std::uint8_t>(extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
  // The server answers XFixes requests only to clients that have asked for its version.
  const XReply<xcb_xfixes_query_version_reply_t> version(
      xcb_xfixes_query_version_reply(connection_, xcb_xfixes_query_version(connection_, 5, 0), nullptr));
  if (!version) return false;

  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection_));
  for (int i = 0; i < screenNumber && screens.rem > 1; ++i) xcb_screen_next(&screens);
  window_ = xcb_generate_id(connection_);
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, screens.data->root, -1, -1, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);

  atoms_ = {.clipboard = atom("CLIPBOARD"),
            .clipboardManager = atom("CLIPBOARD_MANAGER"),
            .targets = atom("TARGETS"),
            .multiple = atom("MULTIPLE"),
            .timestamp = atom("TIMESTAMP"),
            .saveTargets = atom("SAVE_TARGETS"),
            .incr = atom("INCR"),
            .atomPair = atom("ATOM_PAIR"),
            .null = atom("NULL"),
            .utf8String = atom("UTF8_STRING"),
            .text = atom("TEXT"),
            .clock = atom("AMBREL_CLOCK")};
  xcb_xfixes_select_selection_input(connection_, screens.data->root, atoms_.clipboard,
                                    XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
  xcb_flush(connection_);
  return !isBroken();
}

xcb_atom_t SelectionConnection::atom(std::string_view name) {
  const auto known = atomsByName_.find(std::string(name));
  if (known != atomsByName_.end()) return known->second;
  const XReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
      connection_, xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
  if (!reply) return XCB_ATOM_NONE;
  if (atomsByName_.size() >= mostNames) atomsByName_.clear();
  atomsByName_[std::string(name)] = reply->atom;
  namesByAtom_[reply->atom] = name;
  return reply->atom;
}

std::vector<std::string> SelectionConnection::names(std::span<const xcb_atom_t> atoms) {
  if (namesByAtom_.size() + atoms.size() > 2 * mostNames) namesByAtom_.clear();
  // All questions first, then all answers: one round trip.
  std::vector<std::pair<xcb_atom_t, xcb_get_atom_name_cookie_t>> questions;
  for (const xcb_atom_t atom : atoms)
    if (!namesByAtom_.contains(atom)) questions.emplace_back(atom, xcb_get_atom_name(connection_, atom));
  for (const auto& [atom, cookie] : questions) {
    xcb_generic_error_t* error = nullptr;
    const XReply<xcb_get_atom_name_reply_t> reply(xcb_get_atom_name_reply(connection_, cookie, &error));
    const XReply<xcb_generic_error_t> refused(error);
    std::string& name = namesByAtom_[atom];
    if (reply && xcb_get_atom_name_name_length(reply.get()) <= longestName)
      name.assign(xcb_get_atom_name_name(reply.get()),
                  static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get())));
  }
  std::vector<std::string> list;
  for (const xcb_atom_t atom : atoms) list.push_back(namesByAtom_[atom]);
  return list;
}

xcb_window_t SelectionConnection::owner(xcb_atom_t selection) {
  const XReply<xcb_get_selection_owner_reply_t> reply(
      xcb_get_selection_owner_reply(connection_, xcb_get_selection_owner(connection_, selection), nullptr));
  return reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
}

SelectionConnection::Property SelectionConnection::takeProperty(xcb_atom_t property, std::size_t limit) {
  Property taken;
  for (std::uint32_t offset = 0;;) {
    // The server deletes the property along with its last piece.
    const XReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection_, xcb_get_property(connection_, 1, window_, property, XCB_GET_PROPERTY_TYPE_ANY, offset, pieceWords),
        nullptr));
    if (!reply) return {};
    if (offset == 0) {
      taken.type = reply->type;
      taken.format = reply->format;
    } else if (reply->type != taken.type || reply->format != taken.format) {
      // The owner has written something else meanwhile.
      return {};
    }
    const auto length = static_cast<std::size_t>(std::max(xcb_get_property_value_length(reply.get()), 0));
    taken.size += length;
    if (taken.size > limit) {
      taken.size += reply->bytes_after;
      // What has been read to its end is deleted already; the owner may have sent its next piece.
      if (reply->bytes_after > 0) xcb_delete_property(connection_, window_, property);
      taken.bytes.clear();
      taken.isTooLarge = true;
      return taken;
    }
    taken.bytes.append(static_cast<const char*>(xcb_get_property_value(reply.get())), length);
    if (reply->bytes_after == 0 || length == 0) return taken;
    offset += pieceWords;
  }
}

SelectionConnection::Property SelectionConnection::dropProperty(xcb_atom_t property) {
  const XReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
      connection_, xcb_get_property(connection_, 0, window_, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 0), nullptr));
  if (!reply || reply->type == XCB_ATOM_NONE) return {};
  xcb_delete_property(connection_, window_, property);
  return {.type = reply->type, .format = reply->format, .bytes = {}, .isTooLarge = false, .size = reply->bytes_after};
}

}  // namespace ambrel
