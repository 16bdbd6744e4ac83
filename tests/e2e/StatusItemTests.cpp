// The tray item in a real tray, which comes after it and goes before it.

#include <QApplication>
#include <gtest/gtest.h>

#include "app/menu/StatusIcon.h"
#include "app/menu/StatusItem.h"
#include "platform/linux/services/LinuxTray.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

TEST(StatusItemInTray, ATrayThatComesLaterTakesItUpAndAClickOpensTheMenu) {
  const QTemporaryDir folder;
  writeFile(folder.filePath("tint2rc"),
            "panel_items = S\npanel_position = bottom center horizontal\npanel_size = 100% 30\n");
  std::vector<MenuCommand> chosen;
  StatusItem item([](int attention) { return statusIcon(attention, darkPalette()); },
                  [&](MenuCommand command, const std::optional<UUID>&) { chosen.push_back(command); });
  MenuState state;
  state.profiles = Profile::defaults();
  item.update(menuModel(state));
  const auto connection = connectToDesktop();
  LinuxTray tray(QDBusConnection::sessionBus(), connection.get());
  tray.whenThere([&] { item.show(); });

  const Client panel("tint2", {"-c", folder.filePath("tint2rc")});
  const auto place = [&] { return item.trayIcon() ? item.trayIcon()->geometry() : QRect(); };
  ASSERT_TRUE(waitFor([&] { return place().width() >= 16 && place().y() >= 860; })) << "not in the panel";

  const auto click = [&] {
    const QPoint at = place().center();
    run("xdotool", {"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "1"});
    return waitFor([&] { return item.menu().isVisible(); }, 500);
  };
  ASSERT_TRUE(waitFor(click));
  // A change of texts leaves the open menu open.
  state.workingCount = 3;
  item.update(menuModel(state));
  EXPECT_TRUE(item.menu().isVisible());
  // The last entry, by the keyboard.
  run("xdotool", {"key", "Up", "Return"});
  EXPECT_TRUE(waitFor([&] { return !chosen.empty(); }));
  EXPECT_EQ(chosen, std::vector<MenuCommand>{MenuCommand::quit});
}

}  // namespace
}  // namespace ambrel

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
