#pragma once
// A part of the program: its models, and what it offers to the bar, to Buddy and to the desktop.

#include <QObject>
#include <QVariantMap>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/base/Instant.h"
#include "core/buddy.h"
#include "core/settings.h"
#include "core/widgets.h"
#include "core/workspace/Wish.h"
#include "platform/HotKeys.h"

namespace ambrel {

struct PeekSignals;

// What an area may ask of the program around it.
class Shell {
 public:
  virtual ~Shell() = default;
  virtual void showToast(const QString& title, const QString& detail, const QString& symbol) = 0;
  // Puts it on the pasteboard and says so.
  virtual void copyText(const QString& text) = 0;
  // Whether the active profile holds the widget, and whether any profile does.
  virtual bool isOnBar(DockWidget widget) const = 0;
  virtual bool isInAnyProfile(DockWidget widget) const = 0;
  // As a click on the widget's tile; nothing where it is on no bar.
  virtual void activate(DockWidget widget) = 0;
};

// A key that the area answers anywhere on the desktop.
struct AreaKey {
  const Setting<KeyCombination>* setting;
  std::function<void()> action;
  std::string option;            // of the program, that does the same: "--toggle-clipboard"
  char digit = 0;                // where one setting is of several keys: in the place of its own
  std::string description = {};  // of this one of several; empty: that of the setting
};

// Its name is that of its QML module: the area "Focus" has the tiles of Ambrel.Focus. Each of its properties is handed
// to the tiles and panels of that module that ask for a property of this name, as is the area itself under "area".
class Area : public QObject {
  Q_OBJECT
  QML_ANONYMOUS
  Q_PROPERTY(ambrel::Area* area READ area CONSTANT FINAL)

 public:
  explicit Area(QString name, QObject* parent = nullptr) : QObject(parent), name_(std::move(name)) {}
  const QString& name() const { return name_; }
  Area* area() { return this; }

  // Another profile is active, or the bar has come into sight or left it.
  virtual void widgetsChanged(const std::set<DockWidget>& /*onBar*/, bool /*areSeen*/, Instant /*now*/) {}
  // Every two seconds.
  virtual void tick(Instant /*now*/) {}
  // Keys of the defaults were changed: the file was edited, or the user has chosen a setting.
  virtual void defaultsChanged(const std::set<std::string>& /*keys*/) {}
  // The computer is in another time zone.
  virtual void zoneChanged(Instant /*now*/) {}
  // Adds what the area knows to what Buddy's rules look at.
  virtual void addSignals(BuddySignals& /*signals*/, Instant /*now*/) {}
  // Adds what the area knows of what may bring the bar out for a moment.
  virtual void addPeeks(PeekSignals& /*signals*/, Instant /*now*/) {}
  // A click on a notification ("") or on one of its buttons. Says whether the notification is the area's.
  virtual bool answerNotification(const std::string& /*identifier*/, const std::string& /*action*/) { return false; }
  // The user has put the notification away.
  virtual void notificationDismissed(const std::string& /*identifier*/) {}
  // Says whether the command is the area's.
  virtual bool carryOut(const Wish& /*wish*/) { return false; }
  virtual std::vector<AreaKey> keys() { return {}; }
  // Properties of the widget's tile that make it an example of itself, for the gallery: nothing is read for it. Empty
  // where the tile has something to show anyway.
  virtual QVariantMap sample(DockWidget /*widget*/) { return {}; }

 Q_SIGNALS:
  // Something for Buddy to say, and something that moves him; without a length it moves him once.
  void noticed(const ambrel::BuddyNotice& notice);
  void buddyTriggered(ambrel::BuddyTrigger trigger, std::optional<ambrel::Seconds> length);

 private:
  QString name_;
};

}  // namespace ambrel
