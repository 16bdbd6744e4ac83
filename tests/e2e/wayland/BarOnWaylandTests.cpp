// The program under a real compositor that puts its windows at the edges of the screens.

#include "wlr-virtual-pointer-unstable-v1-client-protocol.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRect>
#include <algorithm>
#include <gtest/gtest.h>
#include <optional>

#include "platform/wayland/WaylandConnection.h"
#include "tests/TemporaryFolder.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

constexpr QSize screenSize{1600, 900};

class VirtualPointer {
 public:
  VirtualPointer() {
    auto* const manager =
        static_cast<zwlr_virtual_pointer_manager_v1*>(connection_->bind(zwlr_virtual_pointer_manager_v1_interface, 1));
    pointer_ = zwlr_virtual_pointer_manager_v1_create_virtual_pointer(manager, nullptr);
    zwlr_virtual_pointer_manager_v1_destroy(manager);
  }
  ~VirtualPointer() { zwlr_virtual_pointer_v1_destroy(pointer_); }
  VirtualPointer(const VirtualPointer&) = delete;

  void moveTo(QPoint at) {
    zwlr_virtual_pointer_v1_motion_absolute(pointer_, ++time_, unsigned(at.x()), unsigned(at.y()),
                                            unsigned(screenSize.width()), unsigned(screenSize.height()));
    send();
  }
  void click(QPoint at) {
    moveTo(at);
    constexpr std::uint32_t leftButton = 0x110;
    for (const auto state : {WL_POINTER_BUTTON_STATE_PRESSED, WL_POINTER_BUTTON_STATE_RELEASED}) {
      zwlr_virtual_pointer_v1_button(pointer_, ++time_, leftButton, state);
      send();
    }
  }

 private:
  void send() {
    zwlr_virtual_pointer_v1_frame(pointer_);
    bool isDone = false;
    connection_->roundTrip([&isDone] { isDone = true; });
    connection_->turnUntil([&isDone] { return isDone; }, deadline());
  }
  static SteadyTime deadline() { return std::chrono::steady_clock::now() + std::chrono::seconds(5); }

  std::unique_ptr<WaylandConnection> connection_ =
      WaylandConnection::open(qgetenv("WAYLAND_DISPLAY").toStdString(), deadline());
  zwlr_virtual_pointer_v1* pointer_ = nullptr;
  std::uint32_t time_ = 0;
};

QJsonArray outputs() {
  return QJsonDocument::fromJson(QByteArray::fromStdString(run("swaymsg", {"-r", "-t", "get_outputs"}).output)).array();
}

// What a screen has of ours, from its upper left corner: with the room for their shadows, and without the strips.
std::vector<QRect> windowsOn(const QString& screen) {
  std::vector<QRect> found;
  for (const auto& output : outputs()) {
    if (output.toObject()[QLatin1String("name")].toString() != screen) continue;
    for (const auto& surface : output.toObject()[QLatin1String("layer_shell_surfaces")].toArray()) {
      const QJsonObject extent = surface.toObject()[QLatin1String("extent")].toObject();
      if (surface.toObject()[QLatin1String("namespace")].toString() == QLatin1String("tilebay"))
        found.emplace_back(extent[QLatin1String("x")].toInt(), extent[QLatin1String("y")].toInt(),
                           extent[QLatin1String("width")].toInt(), extent[QLatin1String("height")].toInt());
    }
  }
  return found;
}

class BarOnWayland : public testing::Test {
 protected:
  void start(const std::string& edge) {
    home_.write(
        "config/Ambrel/defaults.json",
        "{\"welcomeDone\":true,\"buddyAdded\":true,\"dockEdge\":\"" + edge +
            "\",\"weatherForecastURL\":\"http://127.0.0.1:1/\",\"weatherAirQualityURL\":\"http://127.0.0.1:1/\"}");
    home_.write("data/Ambrel/profiles.json", R"([{"id":"5A3B2C10-0000-4000-8000-000000000001","name":"Test","items":[)"
                                             R"({"id":"5A3B2C10-0000-4000-8000-000000000002","widget":"water"},)"
                                             R"({"id":"5A3B2C10-0000-4000-8000-000000000003","widget":"pomodoro"}]}])");
    const QString home = QString::fromStdString(home_.path().string());
    bar_ = std::make_unique<Client>(
        "env", QStringList{"-u", "QT_QPA_PLATFORM", "HOME=" + home, "XDG_CONFIG_HOME=" + home + "/config",
                           "XDG_DATA_HOME=" + home + "/data", "XDG_CACHE_HOME=" + home + "/cache", TILEBAY_PROGRAM});
    pointer_.moveTo({800, 300});
  }
  static std::size_t count(const QString& screen = first) { return windowsOn(screen).size(); }
  static bool shows(std::size_t windows, const QString& screen = first) {
    return waitFor([&] { return count(screen) == windows; });
  }
  bool comesOutAt(QPoint edge) {
    // Until the program is there to see it.
    return waitFor(
        [&] {
          pointer_.moveTo({800, 300});
          pointer_.moveTo(edge);
          return waitFor([] { return count() == 1; }, 500);
        },
        20000);
  }

  static constexpr const char* first = "HEADLESS-1";
  TemporaryFolder home_;
  VirtualPointer pointer_;
  std::unique_ptr<Client> bar_;
};

TEST_F(BarOnWayland, ComesOutAtItsEdgeAndLeavesWithThePointer) {
  struct Edge {
    std::string name;
    QPoint at;
  };
  for (const auto& [name, at] : {Edge{"bottom", {800, 899}}, Edge{"left", {0, 450}}, Edge{"right", {1599, 450}}}) {
    SCOPED_TRACE(name);
    start(name);
    ASSERT_TRUE(comesOutAt(at));
    const QRect bar = windowsOn(first).front();
    EXPECT_TRUE(bar.adjusted(-8, -8, 8, 8).contains(at)) << bar.x() << ' ' << bar.y();
    pointer_.moveTo({800, 300});
    EXPECT_TRUE(shows(0));
    bar_.reset();
  }
}

TEST_F(BarOnWayland, AClickOpensAPanelThatLeavesByEscapeOrAClickElsewhere) {
  const Client other("foot", {"--config=/dev/null", "sleep", "60"});
  start("bottom");
  ASSERT_TRUE(comesOutAt({800, 899}));
  const QPoint tile = windowsOn(first).front().center() - QPoint(60, 0);
  pointer_.click({tile.x(), 850});
  ASSERT_TRUE(shows(2));
  EXPECT_EQ(run("wtype", {"-k", "Escape"}).status, 0);
  ASSERT_TRUE(shows(1));
  pointer_.click({tile.x(), 850});
  ASSERT_TRUE(shows(2));
  pointer_.click({200, 200});
  EXPECT_TRUE(shows(0));
}

TEST_F(BarOnWayland, TheShelfStaysUntilItIsDoneWith) {
  start("bottom");
  ASSERT_TRUE(comesOutAt({800, 899}));
  pointer_.moveTo({800, 300});
  ASSERT_TRUE(shows(0));
  pointer_.moveTo({800, 0});
  ASSERT_TRUE(shows(2)) << "and the bar with it";
  pointer_.moveTo({100, 600});
  ASSERT_TRUE(shows(0));
  run(TILEBAY_PROGRAM, {"--toggle-clipboard"});
  ASSERT_TRUE(shows(2));
  EXPECT_FALSE(waitFor([] { return count() != 2; }, 1500));
  EXPECT_EQ(run("wtype", {"-k", "Escape"}).status, 0);
  EXPECT_TRUE(shows(0));
}

TEST_F(BarOnWayland, GoesToTheScreenThatIsLeft) {
  run("swaymsg", {"create_output"});
  start("bottom");
  ASSERT_TRUE(comesOutAt({800, 899}));
  run("swaymsg", {"output HEADLESS-1 unplug"});
  run(TILEBAY_PROGRAM, {"--reveal"});
  EXPECT_TRUE(shows(1, "HEADLESS-2"));
}

}  // namespace
}  // namespace ambrel
