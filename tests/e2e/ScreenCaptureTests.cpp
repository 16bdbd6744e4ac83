// Pictures of a real X server's screen.

#include <QGuiApplication>
#include <QWindow>
#include <gtest/gtest.h>
#include <xcb/shape.h>

#include "platform/linux/X11ScreenCapture.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

TEST(ScreenCaptureOnX11, ShowsOtherProgramsAndNoneOfOurWindows) {
  const auto connection = connectToDesktop();
  ASSERT_TRUE(connection) << "no X server";
  run("hsetroot", {"-solid", "#204060"});
  Client other("xterm", {"-bg", "#00ff00", "-geometry", "60x10+200+300", "-e", "sleep", "60"});
  X11ScreenCapture capture(connection.get());
  ScreenPicture picture;
  const auto take = [&] {
    picture = {};
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

}  // namespace
}  // namespace ambrel
