// Screens of a real X server, the edges that a real panel reserves, pictures of a screen, and the server's own screen
// saver, which blanks the screen after a second here.

#include <QGuiApplication>
#include <QWindow>
#include <gtest/gtest.h>
#include <xcb/screensaver.h>
#include <xcb/shape.h>

#include "platform/linux/X11ScreenCapture.h"
#include "platform/linux/X11ScreenSaver.h"
#include "platform/linux/X11Screens.h"
#include "platform/linux/X11WindowStyle.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

class ScreensOnX11 : public X11Test {
 protected:
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(X11Test::SetUp());
    ASSERT_TRUE(folder_.isValid());
    writeFile(folder_.filePath("tint2rc"),
              "panel_items = S\npanel_position = bottom center horizontal\npanel_size = 100% 30\n"
              "strut_policy = follow_size\n");
  }
  void TearDown() override {
    run("xrandr", {"--delmonitor", "eDP-1"});
    run("xrandr", {"--delmonitor", "HDMI-7"});
    waitFor([] { return QGuiApplication::screens().size() == 1; });
  }

  QTemporaryDir folder_;
};

TEST_F(ScreensOnX11, APanelOfAnotherProgramTakesItsEdge) {
  X11Screens screens(connection_.get());
  ASSERT_EQ(screens.list().size(), 1u);
  const Rect whole = screens.list().front().frame;
  EXPECT_EQ(whole, (Rect{0, 0, 1600, 900}));
  EXPECT_EQ(screens.list().front().visibleFrame, whole);
  EXPECT_EQ(screens.mainHeight(), 900);
  int changes = 0;
  screens.setChangeHandler([&] { ++changes; });

  Client panel("tint2", {"-c", folder_.filePath("tint2rc")});
  EXPECT_TRUE(waitFor([&] { return screens.list().front().visibleFrame == Rect{0, 30, 1600, 870}; }));
  EXPECT_EQ(screens.list().front().frame, whole);
  EXPECT_GE(changes, 1);
  panel.stop();
  EXPECT_TRUE(waitFor([&] { return screens.list().front().visibleFrame == whole; }));
}

// As under desktops that draw their panels themselves.
TEST_F(ScreensOnX11, AWorkAreaTakesItsEdges) {
  X11Screens screens(connection_.get());
  const Rect whole = screens.list().front().frame;
  run("xprop", {"-root", "-f", "_GTK_WORKAREAS_D0", "32c", "-set", "_GTK_WORKAREAS_D0", "0, 32, 1600, 820"});
  EXPECT_TRUE(waitFor([&] { return screens.list().front().visibleFrame == Rect{0, 48, 1600, 820}; }));
  run("xprop", {"-root", "-remove", "_GTK_WORKAREAS_D0"});
  EXPECT_TRUE(waitFor([&] { return screens.list().front().visibleFrame == whole; }));
}

TEST_F(ScreensOnX11, ADockThatHidesIsTold) {
  X11Screens screens(connection_.get());
  X11WindowStyle style(connection_.get());
  QWindow own;
  style.prepare(own, WindowRole::dock);
  // Clear of the dock's strip, which the pointer has to reach.
  style.place(own, QRect(300, 400, 1000, 100));
  own.show();
  ASSERT_TRUE(waitFor([&] { return own.isExposed(); }));
  writeFile(folder_.filePath("hiding"),
            "panel_items = S\npanel_position = bottom center horizontal\npanel_size = 60% 40\n"
            "strut_policy = none\nautohide = 1\nautohide_height = 2\n");
  EXPECT_FALSE(screens.list().front().hidingDockHeight);
  Client dock("tint2", {"-c", folder_.filePath("hiding")});
  // It comes out when the pointer enters its strip, and is out while the pointer is on it.
  EXPECT_TRUE(waitFor([&] {
    run("xdotool", {"mousemove", "800", "890", "mousemove", "800", "899"});
    return screens.list().front().hidingDockHeight == 40.0;
  }));
  EXPECT_TRUE(waitFor([&] { return screens.list().front().visibleFrame == Rect{0, 40, 1600, 860}; }));
  run("xdotool", {"mousemove", "800", "300"});
  EXPECT_TRUE(waitFor([&] { return screens.list().front().visibleFrame == screens.list().front().frame; }));
  EXPECT_EQ(screens.list().front().hidingDockHeight, 40.0);
  dock.stop();
  EXPECT_TRUE(waitFor([&] { return !screens.list().front().hidingDockHeight; }));
}

TEST_F(ScreensOnX11, AWindowInFullScreenFillsItsScreen) {
  X11Screens screens(connection_.get());
  const auto isFilled = [&] { return screens.list().front().isFilled; };
  Client first("xterm", {"-fullscreen", "-e", "sleep", "60"});
  EXPECT_TRUE(waitFor(isFilled));
  // Another window in front of it.
  Client second("xterm", {"-e", "sleep", "60"});
  EXPECT_TRUE(waitFor([&] { return !isFilled(); }));
  second.stop();
  EXPECT_TRUE(waitFor(isFilled));
  first.stop();
  EXPECT_TRUE(waitFor([&] { return !isFilled(); }));
}

// As the bars of tiling window managers.
TEST_F(ScreensOnX11, APanelThatNoWindowManagerListsTakesItsEdge) {
  run("xprop", {"-root", "-remove", "_NET_WORKAREA"});
  X11Screens screens(connection_.get());
  QWindow panel;
  panel.setFlags(Qt::X11BypassWindowManagerHint | Qt::FramelessWindowHint);
  panel.setGeometry(0, 870, 1600, 30);
  panel.create();
  const std::uint32_t strut[] = {0, 0, 0, 30, 0, 0, 0, 0, 0, 0, 0, 1599};
  xcb_change_property(connection_->xcb(), XCB_PROP_MODE_REPLACE, xcb_window_t(panel.winId()),
                      connection_->atom("_NET_WM_STRUT_PARTIAL"), XCB_ATOM_CARDINAL, 32, 12, strut);
  connection_->flush();
  panel.show();
  EXPECT_TRUE(waitFor([&] { return screens.list().front().visibleFrame == Rect{0, 30, 1600, 870}; }));
  panel.hide();
  EXPECT_TRUE(waitFor([&] { return screens.list().front().visibleFrame == screens.list().front().frame; }));
}

TEST(ScreensOnManager, TheManagersOwnBarTakesItsEdge) {
  const auto connection = connectToDesktop();
  ASSERT_TRUE(connection);
  X11Screens screens(connection.get());
  EXPECT_TRUE(waitFor([&] {
    const ScreenInfo screen = screens.list().front();
    const double kept = screen.frame.height - screen.visibleFrame.height;
    return kept > 10 && kept < 60 && screen.visibleFrame.width == screen.frame.width;
  }));
}

TEST_F(ScreensOnX11, WithoutAScreenThereIsNoStandIn) {
  X11Screens screens(connection_.get());
  ASSERT_EQ(screens.list().size(), 1u);
  const ScreenInfo before = screens.list().front();
  run("xrandr", {"--output", "screen", "--off"});
  EXPECT_TRUE(waitFor([&] { return screens.list().empty(); }));
  ASSERT_EQ(run("xrandr", {"--output", "screen", "--auto"}).status, 0);
  EXPECT_TRUE(waitFor([&] { return screens.list().size() == 1 && screens.list().front() == before; }));
}

TEST_F(ScreensOnX11, ScreensComeAndGo) {
  X11Screens screens(connection_.get());
  int changes = 0;
  screens.setChangeHandler([&] { ++changes; });
  // The lower right one is 100 below the top.
  ASSERT_EQ(run("xrandr", {"--setmonitor", "eDP-1", "800/200x900/225+0+0", "screen"}).status, 0);
  ASSERT_EQ(run("xrandr", {"--setmonitor", "HDMI-7", "800/200x800/200+800+100", "none"}).status, 0);
  ASSERT_TRUE(waitFor([&] { return screens.list().size() == 2; }));
  EXPECT_GE(changes, 1);
  const auto both = screens.list();
  for (const ScreenInfo& screen : both) {
    const bool isOwn = screen.name == "eDP-1";
    EXPECT_EQ(screen.isBuiltin, isOwn) << screen.name;
    EXPECT_EQ(flipped(screen.frame, screens.mainHeight()), isOwn ? (Rect{0, 0, 800, 900}) : (Rect{800, 100, 800, 800}));
  }
  EXPECT_EQ(both.front().frame.minY(), 0) << "the main screen is at the bottom";
  ASSERT_EQ(run("xrandr", {"--delmonitor", "HDMI-7"}).status, 0);
  EXPECT_TRUE(waitFor([&] { return screens.list().size() == 1; }));
}

TEST(ScreenCaptureOnX11, ShowsOtherProgramsAndNoneOfOurWindows) {
  const auto connection = connectToDesktop();
  ASSERT_TRUE(connection) << "no X server";
  run("hsetroot", {"-solid", "#204060"});
  Client other("xterm", {"-bg", "#00ff00", "-geometry", "60x10+200+300", "-e", "sleep", "60"});
  X11ScreenCapture capture(connection.get());
  ScreenPicture picture;
  const auto take = [&] {
    picture = {};
    capture.capture([](const ScreenPicture&) { ADD_FAILURE() << "the next capture has abandoned it"; });
    capture.capture([&](ScreenPicture taken) { picture = std::move(taken); });
    return waitFor([&] { return !picture.image.isNull() || !picture.problem.empty(); });
  };
  ASSERT_TRUE(waitFor([&] { return take() && picture.windows.size() == 1; }));
  QWindow own;
  own.setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
  own.setGeometry(0, 0, 1600, 900);
  own.show();
  ASSERT_TRUE(waitFor([&] { return own.isExposed(); }));
  // The program below needs its moment to draw what we covered.
  EXPECT_TRUE(waitFor([&] {
    const QRectF box = picture.windows.front();
    const QPoint middle(qRound((box.x() + box.width() * 0.9) * 1600), qRound((box.y() + box.height() * 0.9) * 900));
    return take() && picture.image.pixelColor(1500, 100) == QColor(0x20, 0x40, 0x60) &&
           picture.image.pixelColor(middle) == QColor(0, 255, 0);
  }));
  EXPECT_EQ(picture.image.size(), QSize(1600, 900));
  EXPECT_EQ(picture.windows.size(), 1u);
  // It is whole again.
  const auto extents = xcb_shape_query_extents(connection->xcb(), static_cast<xcb_window_t>(own.winId()));
  const XcbPtr<xcb_shape_query_extents_reply_t> shape(
      xcb_shape_query_extents_reply(connection->xcb(), extents, nullptr));
  ASSERT_TRUE(shape);
  EXPECT_FALSE(shape->bounding_shaped);
}

class ScreenSaverOnX11 : public testing::Test {
 protected:
  void SetUp() override {
    connection_ = connectToDesktop();
    watcher_ = connectToDesktop();
    ASSERT_TRUE(connection_ && watcher_);
    xcb_set_screen_saver(watcher_->xcb(), 1, 0, XCB_BLANKING_PREFERRED, XCB_EXPOSURES_ALLOWED);
    watcher_->flush();
  }
  void TearDown() override {
    xcb_set_screen_saver(watcher_->xcb(), 0, 0, XCB_BLANKING_DEFAULT, XCB_EXPOSURES_DEFAULT);
    xcb_force_screen_saver(watcher_->xcb(), XCB_SCREEN_SAVER_RESET);
    watcher_->flush();
  }
  bool isBlank() const {
    const XcbPtr<xcb_screensaver_query_info_reply_t> info(xcb_screensaver_query_info_reply(
        watcher_->xcb(), xcb_screensaver_query_info(watcher_->xcb(), watcher_->root()), nullptr));
    return info && info->state == XCB_SCREENSAVER_STATE_ON;
  }

  std::unique_ptr<X11Connection> connection_, watcher_;
};

TEST_F(ScreenSaverOnX11, BlanksNothingWhileItIsSuspended) {
  X11ScreenSaver screenSaver(connection_.get());
  ASSERT_TRUE(screenSaver.suspend(true));
  EXPECT_FALSE(waitFor([this] { return isBlank(); }, 2500));
  ASSERT_TRUE(screenSaver.suspend(false));
  EXPECT_TRUE(waitFor([this] { return isBlank(); }));
}

TEST_F(ScreenSaverOnX11, GoesOnWhenItsHolderIsGone) {
  ASSERT_TRUE(X11ScreenSaver(connection_.get()).suspend(true));
  connection_.reset();
  EXPECT_TRUE(waitFor([this] { return isBlank(); }));
}

}  // namespace
}  // namespace ambrel
