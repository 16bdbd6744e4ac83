#include <QDBusMetaType>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

#include "platform/linux/PortalScreenCapture.h"
#include "tests/Pictures.h"
#include "tests/platform/linux/services/BusTest.h"

namespace ambrel {
struct Channels {
  double red = 0, green = 0, blue = 0;
};
QDBusArgument& operator<<(QDBusArgument& argument, const Channels& channels) {
  argument.beginStructure();
  argument << channels.red << channels.green << channels.blue;
  argument.endStructure();
  return argument;
}
const QDBusArgument& operator>>(const QDBusArgument& argument, Channels&) { return argument; }

namespace {

// A portal that answers with a picture of its own making, or as the test says.
class PortalCapture : public BusTest {
 protected:
  void play() override {
    qDBusRegisterMetaType<Channels>();
    portal_ = service("org.freedesktop.portal.Desktop");
    portal_->answer = [this](const QDBusMessage& message) {
      return promised(*portal_, message, response_,
                      {{"uri", QUrl::fromLocalFile(file()).toString()}, {"color", QVariant::fromValue(color_)}});
    };
    capture_ = std::make_unique<PortalScreenCapture>(bus_.connection());
  }
  QString file() const { return folder_.filePath("Screenshot 1.png"); }
  ScreenPicture take() {
    std::optional<ScreenPicture> taken;
    capture_->capture([&](ScreenPicture picture) { taken = std::move(picture); });
    EXPECT_TRUE(happens([&] { return taken.has_value(); }));
    return taken.value_or(ScreenPicture{});
  }

  QTemporaryDir folder_;
  uint response_ = 0;
  Channels color_;
  std::unique_ptr<FakeService> portal_;
  std::unique_ptr<PortalScreenCapture> capture_;
};

TEST_F(PortalCapture, LeavesNoPictureBehind) {
  ASSERT_TRUE(plainPicture(40, 30, Qt::red).save(file()));
  EXPECT_EQ(take().image.pixelColor(3, 3), QColor(Qt::red));
  EXPECT_FALSE(QFile::exists(file()));
  // There is none any more.
  EXPECT_NE(take().problem, "");
}

TEST_F(PortalCapture, LetsTheUserPickAColor) {
  const auto pick = [this] {
    std::optional<PickedColor> picked;
    EXPECT_TRUE(capture_->pickColor([&](PickedColor color) { picked = std::move(color); }));
    EXPECT_TRUE(happens([&] { return picked.has_value(); }));
    return picked.value_or(PickedColor{});
  };
  color_ = {1, 0.5, 0};
  EXPECT_EQ(pick().color.value_or(QColor()).name(), "#ff8000");
  color_ = {2, 0, 0};
  EXPECT_EQ(pick().problem, "The desktop gave no color.");
  response_ = 1;
  EXPECT_FALSE(pick().color);
  EXPECT_EQ(pick().problem, "");
}

TEST_F(PortalCapture, IsQuietWhenTheUserCallsItOff) {
  response_ = 1;
  const ScreenPicture picture = take();
  EXPECT_TRUE(picture.image.isNull());
  EXPECT_EQ(picture.problem, "");
}

TEST_F(PortalCapture, SaysThatThereIsNoService) {
  portal_.reset();
  EXPECT_EQ(take().problem, "The desktop has no service that takes pictures of the screen.");
}

}  // namespace
}  // namespace ambrel
