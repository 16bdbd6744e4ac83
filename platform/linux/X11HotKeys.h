#pragma once
// Global keys by XGrabKey.

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>
#include <xcb/xcb_keysyms.h>

#include "platform/HotKeys.h"
#include "platform/linux/X11Connection.h"

namespace ambrel {

class X11HotKeys : public HotKeys {
 public:
  // Without a connection no key is available.
  explicit X11HotKeys(X11Connection* connection);
  ~X11HotKeys() override;

  HotKeyResult add(const KeyCombination& combination, std::function<void()> action) override;
  KeyKeeper* keeper() const override { return nullptr; }
  void remove(const KeyCombination& combination) override;

 private:
  struct Grab {
    xcb_keycode_t keycode = 0;
    std::uint16_t modifiers = 0;
    xcb_timestamp_t released = 0;  // when the key last went up; 0 for never
  };
  struct Key {
    KeyCombination combination;
    std::function<void()> action;
    std::vector<Grab> grabs;
  };
  struct SymbolsDeleter {
    void operator()(xcb_key_symbols_t* symbols) const { xcb_key_symbols_free(symbols); }
  };

  // What the server's keyboard has where.
  struct Keyboard {
    std::unique_ptr<xcb_key_symbols_t, SymbolsDeleter> symbols;
    std::uint16_t superMask = XCB_MOD_MASK_4;
    std::uint16_t altMask = XCB_MOD_MASK_1;
    std::uint16_t numLockMask = XCB_MOD_MASK_2;
  };
  // A keycode and the modifiers with it.
  using Chord = std::pair<xcb_keycode_t, std::uint16_t>;

  Keyboard readKeyboard();
  void keyboardChanged();
  void handle(const xcb_generic_event_t& event);
  void pressed(const xcb_key_press_event_t& event);
  void released(const xcb_key_release_event_t& event);
  std::vector<xcb_keycode_t> keycodesOf(char key) const;
  std::uint16_t modifiersOf(const KeyCombination& combination) const;
  // The modifier masks under which a combination has to be grabbed: with Caps Lock, with Num Lock, with both.
  std::vector<std::uint16_t> variantsOf(std::uint16_t modifiers) const;
  // All that is to be grabbed for our keys.
  std::vector<Chord> chords() const;
  HotKeyResult grab(Key& key);
  void ungrab(Key& key);

  X11Connection* connection_;
  Keyboard keyboard_;
  bool isRegrabPlanned_ = false;
  std::vector<Key> keys_;
  std::shared_ptr<void> alive_ = std::make_shared<int>();  // planned calls look whether it is gone
  X11Watch watch_;
};

}  // namespace ambrel
