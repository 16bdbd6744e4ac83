// Tiles are put in order, taken off the bar and brought to it, by pointer and by keyboard.

#include "tests/e2e/keyboard/KeyboardFixture.h"

namespace ambrel {
namespace {

using Names = std::vector<std::string>;

class Arranging : public Keyboard {
 protected:
  std::filesystem::path file() const { return folder_ / "home/.local/share/Ambrel/profiles.json"; }
  Names stored() const {
    Names names;
    const auto profiles = loadProfiles(file()).profiles;
    for (const DockItem& item : profiles.front().items) names.push_back(item.widget.value_or("-"));
    return names;
  }
  bool becomes(const Names& expected) {
    return waitFor([&] { return stored() == expected; }, 4000);
  }

  // Returns when the program has done what it leads to.
  void point(const QStringList& commands) {
    run("xdotool", commands);
    reader_.settle();
  }
  static QStringList moveTo(QPoint at) { return {"mousemove", QString::number(at.x()), QString::number(at.y())}; }
  // Presses in the middle of an item and moves to a place, in steps that a hand would make.
  void hold(QPoint from, QPoint to) {
    point(moveTo(from) + QStringList{"mousedown", "1"});
    for (int step = 1; step <= 8; ++step) point(moveTo(from + (to - from) * step / 8));
  }
  void letGo() { point({"mouseup", "1"}); }

  QString below(const QString& path, const QString& name, int depth = 12) const {
    if (reader_.item(path).name.startsWith(name)) return path;
    for (const QString& child : depth > 0 ? reader_.children(path) : std::vector<QString>())
      if (const QString found = below(child, name, depth - 1); !found.isEmpty()) return found;
    return {};
  }
  // Of the item in a window, once it rests.
  QRect place(const QString& window, const QString& name) {
    QRect last;
    waitFor([&] {
      const QRect now = reader_.item(below(window, name)).place;
      return std::exchange(last, now) == now && now.isValid();
    });
    return last;
  }
  QPoint middle(const QString& window, const QString& name) { return place(window, name).center(); }
};

TEST_F(Arranging, DragsTilesAndTakesItBack) {
  ASSERT_NO_FATAL_FAILURE(start({"clock", "cpu", "fromTheFuture", "memory"}));
  ASSERT_NO_FATAL_FAILURE(takeBar());
  const auto at = [&](const char* tile) { return middle(bar_, tile); };
  // A drag is no click, which would open the tile's panel.
  const auto windows = [&] {
    const auto all = visibleWindows();
    return std::ranges::count_if(all, [&](const QString& window) { return !isMessage(window); });
  };
  const auto before = windows();
  hold(at("CPU"), at("Clock"));
  shoot();
  EXPECT_EQ(stored(), (Names{"clock", "cpu", "fromTheFuture", "memory"})) << "before it is let go";
  letGo();
  EXPECT_TRUE(becomes({"cpu", "clock", "fromTheFuture", "memory"})) << said();
  EXPECT_EQ(windows(), before);

  hold(at("CPU"), at("Memory"));
  point({"key", "Escape"});
  letGo();
  EXPECT_EQ(stored(), (Names{"cpu", "clock", "fromTheFuture", "memory"})) << "Escape ends it";

  // What this version does not know can be taken off as well.
  hold(at("fromTheFuture"), at("fromTheFuture") - QPoint(0, 400));
  shoot();
  letGo();
  EXPECT_TRUE(becomes({"cpu", "clock", "memory"}));
  const auto undo = [&] {
    for (const QString& window : visibleWindows())
      if (const QString found = isMessage(window) ? below(window, "Undo") : QString(); !found.isEmpty()) return found;
    return QString();
  };
  ASSERT_TRUE(waitFor([&] { return !undo().isEmpty(); })) << "no way back";
  reader_.settle();
  shoot();
  point(moveTo(reader_.item(undo()).place.center()) + QStringList{"click", "1"});
  EXPECT_TRUE(becomes({"cpu", "clock", "fromTheFuture", "memory"}));

  // Somebody else edits the profile meanwhile.
  hold(at("CPU"), at("CPU") - QPoint(0, 400));
  auto profiles = loadProfiles(file()).profiles;
  profiles.front().items.pop_back();
  saveProfiles(file(), profiles);
  EXPECT_TRUE(waitFor([&] { return below(bar_, "Memory").isEmpty() && !below(bar_, "CPU").isEmpty(); }));
  letGo();
  EXPECT_EQ(stored(), (Names{"cpu", "clock", "fromTheFuture"}));
  quit();
}

TEST_F(Arranging, MovesTilesByKeysAndBringsThemFromTheGallery) {
  ASSERT_NO_FATAL_FAILURE(start({"clock", "cpu", "memory"}));
  ASSERT_NO_FATAL_FAILURE(takeBar());
  for (int i = 0; i < 4 && !focused().name.startsWith("Clock"); ++i) press("Right");
  EXPECT_TRUE(focused().description.endsWith("1 of 3")) << focused().description.toStdString();
  press("ctrl+Right");
  EXPECT_TRUE(becomes({"cpu", "clock", "memory"}));
  EXPECT_TRUE(focused().name.startsWith("Clock")) << "the keyboard stays on the tile";
  EXPECT_TRUE(focused().description.endsWith("2 of 3")) << focused().description.toStdString();
  press("ctrl+Right");
  press("ctrl+Right");
  EXPECT_TRUE(becomes({"cpu", "memory", "clock"})) << "the end is the end";
  press("ctrl+z");
  EXPECT_TRUE(becomes({"cpu", "clock", "memory"}));

  auto before = visibleWindows();
  press("Menu");
  ASSERT_TRUE(opened(before));
  ASSERT_TRUE(pressUntil("Down", "Customize Dock…"));
  before = visibleWindows();
  press("Return");
  const auto panel = opened(before);
  ASSERT_TRUE(panel);
  // From the search field to the first tile, and on to one that is not on the bar.
  press("Down");
  ASSERT_TRUE(pressUntil("Right", "Network"));
  shoot();
  press("space");
  EXPECT_TRUE(becomes({"cpu", "clock", "memory", "network"}));
  press("ctrl+z");
  EXPECT_TRUE(becomes({"cpu", "clock", "memory"}));
  hold(middle(*panel, "Network"), place(bar_, "CPU").topLeft() + QPoint(6, 20));
  shoot();
  letGo();
  EXPECT_TRUE(becomes({"network", "cpu", "clock", "memory"}));
  EXPECT_TRUE(isVisible(*panel));
  // A tile of the gallery that is let go elsewhere does nothing.
  hold(middle(*panel, "Network"), middle(*panel, "Network") - QPoint(0, 120));
  letGo();
  EXPECT_EQ(stored(), (Names{"network", "cpu", "clock", "memory"}));
  quit();
}

TEST_F(Arranging, OrdersProfilesAndKeepsAChoiceInItsProfile) {
  ASSERT_NO_FATAL_FAILURE(start({"countdown"}));
  ASSERT_NO_FATAL_FAILURE(takeBar());
  auto profiles = loadProfiles(file()).profiles;
  profiles.push_back({.id = UUID::random(), .name = "Other", .trigger = {}, .items = {DockItem::holding("countdown")}});
  saveProfiles(file(), profiles);
  auto before = visibleWindows();
  ASSERT_EQ(run(TILEBAY_PROGRAM, {"--customize"}).status, 0);
  const auto panel = opened(before);
  ASSERT_TRUE(panel);
  EXPECT_EQ(reader_.item(*panel).name, "Customize");
  hold(middle(*panel, "Other, "), place(*panel, "All, ").topLeft() + QPoint(40, -10));
  shoot();
  letGo();
  EXPECT_TRUE(waitFor([&] { return loadProfiles(file()).profiles.front().name == "Other"; })) << said();
  press("Escape");

  // The first profile is on the bar now.
  before = visibleWindows();
  point(moveTo(middle(bar_, "Countdown")) + QStringList{"click", "1"});
  ASSERT_TRUE(opened(before));
  type("Trip");
  ASSERT_TRUE(waitFor([&] { return reader_.item(below(bar_, "Countdown")).name.contains("Trip"); })) << said();
  // Somebody else brings the other profile up before the title is done.
  auto swapped = loadProfiles(file()).profiles;
  std::ranges::reverse(swapped);
  saveProfiles(file(), swapped);
  const auto titles = [&] {
    Names names;
    for (const Profile& profile : loadProfiles(file()).profiles) {
      const auto* title = slotSetting(profile, "countdownTitle");
      names.push_back(title && *title ? std::get<std::string>((*title)->value) : "-");
    }
    return names;
  };
  EXPECT_TRUE(waitFor([&] { return titles() == (Names{"-", "Trip"}); })) << said();
  quit();
}

}  // namespace
}  // namespace ambrel
