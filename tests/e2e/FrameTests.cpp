// A window with a frame of ours, dragged by a real pointer under one window manager after another.

#include <QGuiApplication>
#include <QQmlEngine>
#include <gtest/gtest.h>

#include "app/window/FramedWindow.h"
#include "platform/linux/X11WindowStyle.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

void point(const QPoint& at, const char* button = nullptr) {
  QStringList arguments{"mousemove", QString::number(at.x()), QString::number(at.y())};
  if (button) arguments << button << "1";
  run("xdotool", arguments);
}

// Presses at one place, and lets go a little further on after every step has been seen.
void drag(const QPoint& from, const QPoint& way) {
  point(from, "mousedown");
  for (int step = 1; step <= 4; ++step) point(from + way * step / 4);
  point(from + way, "mouseup");
}

TEST(FrameOnManager, FollowsThePointerAndLetsGo) {
  const auto connection = connectToDesktop();
  ASSERT_TRUE(connection);
  X11WindowStyle style(connection.get());
  QQmlEngine engine;
  engine.addImportPath("qrc:/qt/qml");
  const QTemporaryDir folder;
  writeFile(folder.filePath("Frame.qml"), "import Ambrel.Window\nWindowFrame { title: 'Frame'; symbol: 'xmark' }\n");
  FramedWindow window(engine, style, "Frame", {500, 400}, {300, 200});
  window.setInitialProperties({{"window", QVariant::fromValue(&window)}});
  window.setSource(QUrl::fromLocalFile(folder.filePath("Frame.qml")));
  ASSERT_TRUE(window.errors().isEmpty());
  window.show();
  ASSERT_TRUE(waitFor([&] { return window.isExposed(); }));
  window.setPosition(300, 200);
  // The toolkit says at once where it will be, and for a moment again where the window manager had put it.
  ASSERT_TRUE(waitFor([&] {
    const XcbPtr<xcb_translate_coordinates_reply_t> corner(xcb_translate_coordinates_reply(
        connection->xcb(),
        xcb_translate_coordinates(connection->xcb(), xcb_window_t(window.winId()), connection->root(), 0, 0), nullptr));
    QCoreApplication::processEvents();
    return corner && QPoint(corner->dst_x, corner->dst_y) == QPoint(300, 200) && window.position() == QPoint(300, 200);
  }));

  const auto becomes = [&](const QRect& frame) { return waitFor([&] { return window.geometry() == frame; }, 3000); };
  const auto now = [&] {
    const QRect is = window.geometry();
    return QStringLiteral("%1x%2 at %3, %4").arg(is.width()).arg(is.height()).arg(is.x()).arg(is.y()).toStdString();
  };
  QRect frame = window.geometry();
  drag(frame.topLeft() + QPoint(150, 20), {120, 60});
  frame.translate(120, 60);
  EXPECT_TRUE(becomes(frame)) << "by its title: " << now();
  // The button is up.
  point({700, 700});
  EXPECT_TRUE(becomes(frame));

  drag({frame.right() - 1, frame.center().y()}, {80, 40});
  frame.setRight(frame.right() + 80);
  EXPECT_TRUE(becomes(frame)) << "by its right edge: " << now();
  drag({frame.left() + 1, frame.center().y()}, {500, 0});
  frame.setLeft(frame.right() + 1 - 300);
  EXPECT_TRUE(becomes(frame)) << "to its least width: " << now();
  point({700, 700});
  EXPECT_TRUE(becomes(frame));
}

}  // namespace
}  // namespace ambrel
