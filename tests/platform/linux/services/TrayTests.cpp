#include "platform/linux/services/LinuxTray.h"
#include "tests/platform/linux/services/BusTest.h"

namespace ambrel {
namespace {

using TrayOnBus = BusTest;

TEST_F(TrayOnBus, IsThereOnceSomebodyShowsTheIcons) {
  const QString name = "org.kde.StatusNotifierWatcher", path = "/StatusNotifierWatcher";
  LinuxTray tray(bus_.connection(), nullptr);
  int found = 0;
  tray.whenThere([&] { ++found; });
  const auto list = service("org.kde.StatusNotifierWatcher");
  EXPECT_TRUE(happens([&] { return !list->calls.empty(); }));
  // The list is kept by one program and shown by another.
  list->objects[QDBusObjectPath(path)][name]["IsStatusNotifierHostRegistered"] = true;
  EXPECT_EQ(found, 0);
  list->send(path, name, "StatusNotifierHostRegistered", {});
  EXPECT_TRUE(happens([&] { return found == 1; }));

  list->stop();
  list->start();
  list->send(path, name, "StatusNotifierHostRegistered", {});
  LinuxTray second(bus_.connection(), nullptr);
  second.whenThere([&] { found += 10; });
  EXPECT_TRUE(happens([&] { return found >= 10; }));
  EXPECT_EQ(found, 11);
}

}  // namespace
}  // namespace ambrel
