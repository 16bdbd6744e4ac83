// The desktop's colour scheme while the bar runs: over the bus, and from an XSETTINGS manager.

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QGuiApplication>
#include <csignal>
#include <gtest/gtest.h>

#include "app/kit/DesktopAppearance.h"
#include "platform/linux/X11DesktopTheme.h"
#include "tests/e2e/Desktop.h"

namespace ambrel {
namespace {

TEST(AppearanceOnDesktop, FollowsThePortal) {
  DesktopAppearance appearance;
  auto portal = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal");
  ASSERT_TRUE(portal.isConnected());
  const auto announce = [&](uint scheme) {
    auto signal = QDBusMessage::createSignal("/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings",
                                             "SettingChanged");
    signal << "org.freedesktop.appearance"
           << "color-scheme" << QVariant::fromValue(QDBusVariant(scheme));
    portal.send(signal);
  };
  for (const uint scheme : {1u, 2u, 1u}) {
    announce(scheme);
    EXPECT_TRUE(waitFor([&] { return appearance.isDark() == (scheme == 1); })) << scheme;
  }
}

TEST(AppearanceOnDesktop, FollowsTheNameOfTheTheme) {
  const QTemporaryDir folder;
  const auto write = [&](const QByteArray& theme) {
    writeFile(folder.filePath("settings"), "Xft/DPI 98304\nNet/ThemeName \"" + theme + "\"\nXft/Hinting 1\n");
  };
  const auto connection = connectToDesktop();
  X11DesktopTheme theme(connection.get());
  EXPECT_EQ(theme.name(), "");
  write("Greybird");
  Client manager("xsettingsd", {"-c", folder.filePath("settings")});
  EXPECT_TRUE(waitFor([&] { return theme.name() == "Greybird"; }));
  write("Greybird-dark");
  kill(manager.pid(), SIGHUP);
  EXPECT_TRUE(waitFor([&] { return theme.name() == "Greybird-dark"; }));

  DesktopAppearance appearance;
  appearance.setThemeName("Greybird");
  EXPECT_FALSE(appearance.isDark());
  appearance.setThemeName("Greybird-dark");
  EXPECT_TRUE(appearance.isDark());
  manager.stop();
  EXPECT_TRUE(waitFor([&] { return theme.name().empty(); }));
}

}  // namespace
}  // namespace ambrel
