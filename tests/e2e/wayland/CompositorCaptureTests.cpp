// What the compositor gives as the picture of a screen, beside what another program gets.

#include <gtest/gtest.h>

#include "platform/wayland/CompositorCapture.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

QImage taken(const std::string& screen) {
  return captureByCompositor(qgetenv("WAYLAND_DISPLAY").toStdString(), screen).image;
}
QImage grimOf(const QString& screen) {
  return QImage::fromData(QByteArray::fromStdString(run("grim", {"-t", "ppm", "-o", screen, "-"}).output), "PPM")
      .convertToFormat(QImage::Format_RGB32);
}
bool hasText(const QImage& image) {
  const QRgb ground = image.pixel(image.width() - 1, image.height() - 1);
  for (int x = 0; x < image.width() / 4; ++x)
    if (image.pixel(x, 8) != ground) return true;
  return false;
}

TEST(CompositorCapture, IsThePictureOfAScreenAsItIsSeen) {
  const auto tell = [](const QString& command) { EXPECT_EQ(run("swaymsg", {command}).status, 0); };
  const Client text("foot", {"--config=/dev/null", "--fullscreen", "sh", "-c", "echo ██▄; sleep 60"});
  for (const char* transform : {"normal", "90", "180", "270", "flipped", "flipped-90"}) {
    tell(QStringLiteral("output HEADLESS-1 transform ") + QLatin1String(transform));
    EXPECT_TRUE(waitFor([] {
      const QImage ours = taken("HEADLESS-1");
      return hasText(ours) && ours.convertToFormat(QImage::Format_RGB32) == grimOf("HEADLESS-1");
    })) << transform;
  }
  tell("create_output");
  tell("output HEADLESS-2 resolution 640x480");
  EXPECT_TRUE(waitFor([] { return taken("HEADLESS-2").size() == QSize(640, 480); }));
  EXPECT_FALSE(taken("no such screen").isNull());
  EXPECT_NE(captureByCompositor("no such compositor", "").problem, "");
}

}  // namespace
}  // namespace ambrel
