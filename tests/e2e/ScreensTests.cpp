// Screens of a real X server, and the edges that a real panel reserves.

#include <QGuiApplication>
#include <QWindow>
#include <gtest/gtest.h>

#include "platform/linux/X11Screens.h"
#include "platform/linux/X11WindowStyle.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

class ScreensOnX11 : public testing::Test {
 protected:
  ScreensOnX11() : connection_(connectToDesktop()) {}
  void SetUp() override {
    ASSERT_TRUE(connection_) << "no X server";
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
  std::unique_ptr<X11Connection> connection_;
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

}  // namespace
}  // namespace ambrel
