// Keys pressed on a real X server while no window of ours exists.
// A real pointer, moved by XTEST.

#include <QGuiApplication>
#include <QScreen>
#include <gtest/gtest.h>

#include "platform/linux/X11HotKeys.h"
#include "platform/linux/X11Pointer.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

class HotKeysOnX11 : public X11Test {
 protected:
  void TearDown() override { run("setxkbmap", {"us"}); }

  static void press(const QString& keys) { ASSERT_EQ(run("xdotool", {"key", keys}).status, 0); }
};

constexpr KeyCombination clipboardKey{.key = 'v', .command = true, .option = true};
constexpr KeyCombination revealKey{.key = 'd', .command = true, .option = true, .control = true};

TEST_F(HotKeysOnX11, EachCombinationRunsItsOwnAction) {
  X11HotKeys keys(connection_.get());
  int clipboard = 0, reveal = 0, third = 0;
  EXPECT_EQ(keys.add(clipboardKey, [&] { ++clipboard; }), HotKeyResult::registered);
  EXPECT_EQ(keys.add(revealKey, [&] { ++reveal; }), HotKeyResult::registered);
  EXPECT_EQ(keys.add({.key = '3', .command = true, .option = true, .control = true}, [&] { ++third; }),
            HotKeyResult::registered);
  press("super+alt+v");
  EXPECT_TRUE(waitFor([&] { return clipboard == 1; }));
  press("ctrl+alt+super+d");
  EXPECT_TRUE(waitFor([&] { return reveal == 1; }));
  press("ctrl+alt+super+3");
  EXPECT_TRUE(waitFor([&] { return third == 1; }));
  // Near misses are for other programs; the last press shows that all have been seen.
  press("super+v");
  press("ctrl+alt+d");
  press("ctrl+alt+super+v");
  press("super+alt+v");
  EXPECT_TRUE(waitFor([&] { return clipboard == 2; }));
  EXPECT_EQ(reveal, 1);
}

TEST_F(HotKeysOnX11, WorksUnderTheLocks) {
  X11HotKeys keys(connection_.get());
  int presses = 0;
  ASSERT_EQ(keys.add(clipboardKey, [&] { ++presses; }), HotKeyResult::registered);
  int expected = 0;
  for (const char* lock : {"Num_Lock", "Caps_Lock", "Num_Lock", "Caps_Lock"}) {
    press(lock);
    press("super+alt+v");
    ++expected;
    EXPECT_TRUE(waitFor([&] { return presses == expected; })) << "after " << lock;
  }
}

TEST_F(HotKeysOnX11, ATakenCombinationIsReportedAndLeftAlone) {
  const auto other = connectToDesktop();
  X11HotKeys theirs(other.get());
  int theirPresses = 0, ourPresses = 0;
  ASSERT_EQ(theirs.add(clipboardKey, [&] { ++theirPresses; }), HotKeyResult::registered);

  X11HotKeys ours(connection_.get());
  EXPECT_EQ(ours.add(clipboardKey, [&] { ++ourPresses; }), HotKeyResult::taken);
  EXPECT_EQ(ours.add(revealKey, [&] { ++ourPresses; }), HotKeyResult::registered);
  EXPECT_EQ(ours.add(revealKey, [] {}), HotKeyResult::taken) << "the second time in one program";
  press("super+alt+v");
  EXPECT_TRUE(waitFor([&] { return theirPresses == 1; }));
  press("ctrl+alt+super+d");
  EXPECT_TRUE(waitFor([&] { return ourPresses == 1; }));
}

TEST_F(HotKeysOnX11, LetsGoWhenAskedAndAtTheEnd) {
  const auto other = connectToDesktop();
  {
    X11HotKeys keys(connection_.get());
    EXPECT_EQ(keys.add(revealKey, [] {}), HotKeyResult::registered);
    EXPECT_EQ(keys.add(clipboardKey, [] {}), HotKeyResult::registered);
    keys.remove(revealKey);
    EXPECT_EQ(X11HotKeys(other.get()).add(revealKey, [] {}), HotKeyResult::registered);
  }
  EXPECT_EQ(X11HotKeys(other.get()).add(clipboardKey, [] {}), HotKeyResult::registered);
}

TEST_F(HotKeysOnX11, AHeldKeyCountsOnce) {
  run("xset", {"r", "rate", "60", "50"});
  X11HotKeys keys(connection_.get());
  int presses = 0, events = 0;
  ASSERT_EQ(keys.add(clipboardKey, [&] { ++presses; }), HotKeyResult::registered);
  const X11Watch watch = connection_->watch([&](const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7f) == XCB_KEY_PRESS) ++events;
  });
  run("xdotool", {"keydown", "super", "keydown", "alt", "keydown", "v"});
  EXPECT_TRUE(waitFor([&] { return events >= 4; })) << "the key does not repeat here";
  run("xdotool", {"keyup", "v", "keyup", "alt", "keyup", "super"});
  EXPECT_EQ(presses, 1);
  press("super+alt+v");
  EXPECT_TRUE(waitFor([&] { return presses == 2; }));
  run("xset", {"r", "rate"});
}

TEST_F(HotKeysOnX11, FollowsTheKeyboardLayout) {
  X11HotKeys keys(connection_.get());
  int presses = 0, mappings = 0;
  ASSERT_EQ(keys.add({.key = 'q', .command = true, .option = true}, [&] { ++presses; }), HotKeyResult::registered);
  const X11Watch watch = connection_->watch([&](const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7f) == XCB_MAPPING_NOTIFY) ++mappings;
  });
  press("super+alt+24");
  EXPECT_TRUE(waitFor([&] { return presses == 1; }));
  // On this layout the letter is where "a" is on the other one.
  ASSERT_EQ(run("setxkbmap", {"fr"}).status, 0);
  EXPECT_TRUE(waitFor([&] {
    press("super+alt+38");
    return presses >= 2;
  }));
  const int before = presses;
  press("super+alt+24");
  press("super+alt+38");
  EXPECT_TRUE(waitFor([&] { return presses == before + 1; }));
  // A layout without Latin letters: the usual place of the key.
  ASSERT_EQ(run("setxkbmap", {"ru"}).status, 0);
  const int inFrench = presses;
  EXPECT_TRUE(waitFor([&] {
    press("super+alt+24");
    return presses > inFrench;
  }));
  EXPECT_GT(mappings, 0);
}

TEST_F(HotKeysOnX11, AnotherKeyboardLosesNoKey) {
  X11HotKeys keys(connection_.get());
  int presses = 0;
  for (const char key : std::string("vbnmasdfghjkl"))
    keys.add({.key = key, .command = true, .option = true}, [&] { ++presses; });
  QStringList chords{"key", "--delay", "2"};
  constexpr int count = 60;
  for (int i = 0; i < count; ++i) chords << "super+alt+l";
  const Client typist("xdotool", chords);
  // Its layout is the same.
  for (int i = 0; i < 30; ++i) run("setxkbmap", {"us"});
  EXPECT_TRUE(waitFor([&] { return presses >= count; }));
  EXPECT_EQ(presses, count);
}

class PointerOnX11 : public X11Test {
 protected:
  static void move() { ASSERT_EQ(run("xdotool", {"mousemove_relative", "1", "1"}).status, 0); }
};

TEST_F(PointerOnX11, TellsWhereItIsWithYUpwards) {
  const X11Pointer pointer(connection_.get());
  const double height = QGuiApplication::primaryScreen()->geometry().height();
  const double scale = QGuiApplication::primaryScreen()->devicePixelRatio();
  run("xdotool", {"mousemove", "200", "100"});
  EXPECT_EQ(pointer.location(), (Point{200 / scale, height - 100 / scale}));
  run("xdotool", {"mousemove", "0", "0"});
  EXPECT_EQ(pointer.location(), (Point{0, height}));
}

TEST_F(PointerOnX11, WakesOnceAndThenSleeps) {
  X11Pointer pointer(connection_.get());
  int wakes = 0, events = 0;
  const X11Watch watch = connection_->watch([&](const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7f) == XCB_GE_GENERIC) ++events;
  });
  ASSERT_TRUE(pointer.wakeOnMove([&] { ++wakes; }));
  move();
  EXPECT_TRUE(waitFor([&] { return wakes == 1; }));

  // The server sends nothing more: a later reply comes after whatever it had to say.
  connection_->serverTime();
  QCoreApplication::processEvents();
  events = 0;
  for (int i = 0; i < 5; ++i) move();
  connection_->serverTime();
  QCoreApplication::processEvents();
  EXPECT_EQ(events, 0);
  EXPECT_EQ(wakes, 1);

  ASSERT_TRUE(pointer.wakeOnMove([&] { ++wakes; }));
  move();
  EXPECT_TRUE(waitFor([&] { return wakes == 2; }));
}

TEST_F(PointerOnX11, ANewWaitReplacesTheOldOneAndAStopEndsIt) {
  X11Pointer pointer(connection_.get());
  int first = 0, second = 0, third = 0;
  pointer.wakeOnMove([&] { ++first; });
  pointer.wakeOnMove([&] { ++second; });
  move();
  EXPECT_TRUE(waitFor([&] { return second == 1; }));
  pointer.wakeOnMove([&] { ++first; });
  pointer.stopWaiting();
  pointer.wakeOnMove([&] { ++third; });
  move();
  EXPECT_TRUE(waitFor([&] { return third == 1; }));
  EXPECT_EQ(first, 0);
}

TEST_F(PointerOnX11, MayBeAskedAgainFromTheWakeItself) {
  X11Pointer pointer(connection_.get());
  int wakes = 0;
  std::function<void()> again = [&] {
    ++wakes;
    pointer.wakeOnMove(again);
  };
  pointer.wakeOnMove(again);
  move();
  EXPECT_TRUE(waitFor([&] { return wakes >= 1; }));
  const int before = wakes;
  move();
  EXPECT_TRUE(waitFor([&] { return wakes > before; }));
}

}  // namespace
}  // namespace ambrel
