#pragma once
// The tray of the desktop: one that speaks D-Bus (StatusNotifierItem), or one that takes windows of X11 (XEmbed).

#include <QDBusConnection>
#include <QObject>

#include "platform/Tray.h"
#include "platform/linux/X11Connection.h"

namespace ambrel {

// Found before the toolkit is asked for an icon: it looks for a tray that speaks D-Bus once, at its first icon, and
// never again.
class LinuxTray : public QObject, public Tray {
  Q_OBJECT

 public:
  // Without a connection to the X server there is only the bus. The connection outlives the tray.
  LinuxTray(const QDBusConnection& bus, X11Connection* connection);

  void whenThere(std::function<void()> handler) override;

 private Q_SLOTS:
  // Asks whether somebody shows what is registered with the bus' list of icons.
  void askBus();

 private:
  void askServer();
  void found();

  QDBusConnection bus_;
  X11Connection* connection_;
  X11Watch watch_;
  std::function<void()> handler_;
};

}  // namespace ambrel
