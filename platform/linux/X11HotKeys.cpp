#include "platform/linux/X11HotKeys.h"

#include <QMetaObject>
#include <X11/keysym.h>
#include <algorithm>
#include <utility>

namespace ambrel {
namespace {

constexpr std::uint8_t badAccess = 10;

}  // namespace

X11HotKeys::X11HotKeys(X11Connection* connection) : connection_(connection) {
  if (!connection_) return;
  keyboard_ = readKeyboard();
  watch_ = connection_->watch([this](const xcb_generic_event_t& event) { handle(event); });
}

X11HotKeys::~X11HotKeys() {
  if (!connection_) return;
  for (Key& key : keys_) ungrab(key);
}

HotKeyResult X11HotKeys::add(const KeyCombination& combination, std::function<void()> action) {
  if (!connection_ || connection_->isBroken()) return HotKeyResult::notAvailable;
  // The server would let us grab it twice.
  if (std::ranges::find(keys_, combination, &Key::combination) != keys_.end()) return HotKeyResult::taken;
  Key key{combination, std::move(action), {}};
  const HotKeyResult result = grab(key);
  // A keyboard without the key may be changed for one that has it.
  if (result != HotKeyResult::taken) keys_.push_back(std::move(key));
  return result;
}

void X11HotKeys::remove(const KeyCombination& combination) {
  const auto key = std::ranges::find(keys_, combination, &Key::combination);
  if (key == keys_.end()) return;
  ungrab(*key);
  keys_.erase(key);
}

X11HotKeys::Keyboard X11HotKeys::readKeyboard() {
  Keyboard keyboard;
  keyboard.symbols.reset(xcb_key_symbols_alloc(connection_->xcb()));
  const XcbPtr<xcb_get_modifier_mapping_reply_t> mapping(
      xcb_get_modifier_mapping_reply(connection_->xcb(), xcb_get_modifier_mapping(connection_->xcb()), nullptr));
  connection_->repliesWereRead();
  if (!mapping || !keyboard.symbols) return keyboard;
  const xcb_keycode_t* keycodes = xcb_get_modifier_mapping_keycodes(mapping.get());
  const int perModifier = mapping->keycodes_per_modifier;
  const auto maskWith = [&](xcb_keysym_t symbol, std::uint16_t usual) -> std::uint16_t {
    const XcbPtr<xcb_keycode_t> codes(xcb_key_symbols_get_keycode(keyboard.symbols.get(), symbol));
    for (const xcb_keycode_t* code = codes.get(); code && *code != XCB_NO_SYMBOL; ++code)
      for (int modifier = 3; modifier < 8; ++modifier)  // after Shift, Lock and Control
        for (int i = 0; i < perModifier; ++i)
          if (keycodes[modifier * perModifier + i] == *code) return static_cast<std::uint16_t>(1u << modifier);
    return usual;
  };
  keyboard.superMask = maskWith(XK_Super_L, XCB_MOD_MASK_4);
  keyboard.altMask = maskWith(XK_Alt_L, XCB_MOD_MASK_1);
  keyboard.numLockMask = maskWith(XK_Num_Lock, XCB_MOD_MASK_2);
  connection_->repliesWereRead();
  return keyboard;
}

// Of two keyboards the server announces each that is used after the other. Grabs that stay the same are not let go of
// for that: a key that was pressed meanwhile would be lost.
void X11HotKeys::keyboardChanged() {
  isRegrabPlanned_ = false;
  const auto before = chords();
  Keyboard next = readKeyboard();
  std::swap(keyboard_, next);
  if (chords() == before) return;
  std::swap(keyboard_, next);
  for (Key& key : keys_) ungrab(key);
  keyboard_ = std::move(next);
  for (Key& key : keys_) grab(key);
}

std::vector<X11HotKeys::Chord> X11HotKeys::chords() const {
  std::vector<Chord> all;
  for (const Key& key : keys_)
    for (const xcb_keycode_t keycode : keycodesOf(key.combination.key))
      for (const std::uint16_t variant : variantsOf(modifiersOf(key.combination))) all.emplace_back(keycode, variant);
  return all;
}

void X11HotKeys::handle(const xcb_generic_event_t& event) {
  switch (event.response_type & 0x7f) {
    case XCB_KEY_PRESS:
      pressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
      break;
    case XCB_KEY_RELEASE:
      released(reinterpret_cast<const xcb_key_release_event_t&>(event));
      break;
    case XCB_MAPPING_NOTIFY:
      // One change of layout sends several of these.
      if (std::exchange(isRegrabPlanned_, true)) break;
      QMetaObject::invokeMethod(
          connection_,
          [this, alive = std::weak_ptr<void>(alive_)] {
            if (!alive.expired()) keyboardChanged();
          },
          Qt::QueuedConnection);
      break;
    default:
      break;
  }
}

void X11HotKeys::pressed(const xcb_key_press_event_t& event) {
  const auto wanted = static_cast<std::uint16_t>(
      event.state & (XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | keyboard_.superMask | keyboard_.altMask));
  for (Key& key : keys_) {
    for (Grab& grab : key.grabs) {
      if (grab.keycode != event.detail || grab.modifiers != wanted) continue;
      // A key that is held repeats: it goes up and down again in the same instant.
      if (grab.released == event.time) return;
      // A copy: the action may add another key.
      const auto action = key.action;
      action();
      return;
    }
  }
}

void X11HotKeys::released(const xcb_key_release_event_t& event) {
  for (Key& key : keys_)
    for (Grab& grab : key.grabs)
      if (grab.keycode == event.detail) grab.released = event.time;
}

std::vector<xcb_keycode_t> X11HotKeys::keycodesOf(char key) const {
  std::vector<xcb_keycode_t> found;
  if (!keyboard_.symbols) return found;
  // ASCII letters and digits are their own key symbols.
  const auto symbol = static_cast<xcb_keysym_t>(static_cast<unsigned char>(key));
  const XcbPtr<xcb_keycode_t> codes(xcb_key_symbols_get_keycode(keyboard_.symbols.get(), symbol));
  std::vector<xcb_keycode_t> elsewhere;
  for (const xcb_keycode_t* code = codes.get(); code && *code != XCB_NO_SYMBOL; ++code) {
    // The first two columns are the layout in use; a second layout may have the letter on another key.
    const bool isFirst = xcb_key_symbols_get_keysym(keyboard_.symbols.get(), *code, 0) == symbol ||
                         xcb_key_symbols_get_keysym(keyboard_.symbols.get(), *code, 1) == symbol;
    (isFirst ? found : elsewhere).push_back(*code);
  }
  if (found.empty()) found = std::move(elsewhere);
  // A layout without Latin letters.
  if (found.empty())
    if (const xcb_keycode_t place = usualPlace(key)) found.push_back(place);
  return found;
}

std::uint16_t X11HotKeys::modifiersOf(const KeyCombination& combination) const {
  unsigned modifiers = 0;
  if (combination.command) modifiers |= keyboard_.superMask;
  if (combination.option) modifiers |= keyboard_.altMask;
  if (combination.control) modifiers |= XCB_MOD_MASK_CONTROL;
  if (combination.shift) modifiers |= XCB_MOD_MASK_SHIFT;
  return static_cast<std::uint16_t>(modifiers);
}

std::vector<std::uint16_t> X11HotKeys::variantsOf(std::uint16_t modifiers) const {
  const auto with = [&](unsigned more) { return static_cast<std::uint16_t>(modifiers | more); };
  return {modifiers, with(XCB_MOD_MASK_LOCK), with(keyboard_.numLockMask),
          with(XCB_MOD_MASK_LOCK | keyboard_.numLockMask)};
}

HotKeyResult X11HotKeys::grab(Key& key) {
  const std::uint16_t modifiers = modifiersOf(key.combination);
  HotKeyResult result = HotKeyResult::notAvailable;
  for (const xcb_keycode_t keycode : keycodesOf(key.combination.key)) {
    std::vector<xcb_void_cookie_t> cookies;
    for (const std::uint16_t variant : variantsOf(modifiers))
      cookies.push_back(xcb_grab_key_checked(connection_->xcb(), 1, connection_->root(), variant, keycode,
                                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    key.grabs.push_back({keycode, modifiers, 0});
    for (const xcb_void_cookie_t cookie : cookies) {
      const XcbPtr<xcb_generic_error_t> error(xcb_request_check(connection_->xcb(), cookie));
      if (error)
        result = error->error_code == badAccess ? HotKeyResult::taken : result;
      else if (result == HotKeyResult::notAvailable)
        result = HotKeyResult::registered;
    }
    if (result == HotKeyResult::taken) break;
  }
  connection_->repliesWereRead();
  // Half a combination would work with Num Lock and not without.
  if (result == HotKeyResult::taken) ungrab(key);
  return result;
}

void X11HotKeys::ungrab(Key& key) {
  for (const Grab& grab : key.grabs)
    for (const std::uint16_t variant : variantsOf(grab.modifiers))
      xcb_ungrab_key(connection_->xcb(), grab.keycode, connection_->root(), variant);
  key.grabs.clear();
  // Free for everybody once this returns: requests of others may overtake ours.
  const XcbPtr<xcb_get_input_focus_reply_t> done(
      xcb_get_input_focus_reply(connection_->xcb(), xcb_get_input_focus(connection_->xcb()), nullptr));
  connection_->repliesWereRead();
}

}  // namespace ambrel
