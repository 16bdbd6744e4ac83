#pragma once
// Keys that the desktop portal binds, as on KDE, GNOME and Hyprland.
// org.freedesktop.portal.GlobalShortcuts:
// https://flatpak.github.io/xdg-desktop-portal/docs/doc-org.freedesktop.portal.GlobalShortcuts.html

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <map>
#include <memory>

#include "platform/KeyKeeper.h"
#include "platform/linux/PortalRequest.h"

class QDBusServiceWatcher;

namespace ambrel {

// How the portal writes a key: "sa{sv}".
struct PortalShortcut {
  QString id;
  QVariantMap properties;
};
QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut);

class PortalKeys : public QObject, public KeyKeeper {
  Q_OBJECT

 public:
  // `bus` is for nothing else: the portal learns a program's name only before anything else is asked on a connection.
  PortalKeys(const QDBusConnection& bus, std::string desktop);
  ~PortalKeys() override;

  std::string desktop() const override { return desktop_; }
  void ask(std::vector<OfferedKey> keys) override;
  Answer answer() const override { return answer_; }
  std::string trigger(const std::string& id) const override;
  bool canConfigure() const override { return answer_ == Answer::given && version_ >= 2; }
  void configure() override;
  void setChangeHandler(std::function<void()> handler) override { handler_ = std::move(handler); }

 private Q_SLOTS:
  void activated(const QDBusObjectPath& session, const QString& id, qulonglong time, const QVariantMap& options);
  void shortcutsChanged(const QDBusMessage& message);
  void closed();

 private:
  // `done` does not run once something else is asked.
  void call(const QString& interface, const QString& method, const QVariantList& arguments,
            std::function<void(const QDBusMessage& answer)> done);
  void begin();
  void readVersion();
  void createSession();
  // The portal binds by itself what it knows of this program, and opens a window whenever it is asked to.
  bool bindsOnce() const;
  void list(bool isBound);
  void bind();
  void end();
  void take(const QVariant& shortcuts);
  void become(Answer answer);

  QDBusConnection bus_;
  const std::string desktop_;
  std::function<void()> handler_;
  std::vector<OfferedKey> keys_;
  std::map<std::string, std::string> triggers_;  // of the keys that the portal knows
  Answer answer_ = Answer::none;
  QString session_;   // empty for none
  uint version_ = 0;  // of the portal's interface
  int turn_ = 0;      // of the question; what comes to an older one is passed over
  int sessions_ = 0;  // that were asked for
  bool hasAskedForName_ = false, isNamed_ = false;
  PortalRequest request_;
  QDBusServiceWatcher* watcher_ = nullptr;
};

// The keeper of this session: `desktop` as in XDG_CURRENT_DESKTOP.
std::unique_ptr<KeyKeeper> openPortalKeys(const std::string& desktop);

}  // namespace ambrel
