// A real pointer, moved by XTEST.

#include <QGuiApplication>
#include <QScreen>
#include <gtest/gtest.h>

#include "platform/linux/X11Pointer.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

class PointerOnX11 : public testing::Test {
 protected:
  PointerOnX11() : connection_(connectToDesktop()) {}
  void SetUp() override { ASSERT_TRUE(connection_) << "no X server"; }

  static void move() { ASSERT_EQ(run("xdotool", {"mousemove_relative", "1", "1"}).status, 0); }

  std::unique_ptr<X11Connection> connection_;
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
