#pragma once
// The context of every widget on the bar: the models of all areas, and requests to the program.

#include <QObject>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>
#include <QtQml/qqmlregistration.h>
#include <vector>

#include "app/base/Area.h"
#include "app/context/BarLimits.h"
#include "app/context/TileDrag.h"
#include "app/model/AppModel.h"
#include "app/model/AppSettings.h"

namespace ambrel {

// The models and the areas must outlive it.
class WidgetContext : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::AppModel* model READ model CONSTANT)
  Q_PROPERTY(ambrel::AppSettings* settings READ settings CONSTANT)
  Q_PROPERTY(ambrel::BarLimits* barLimits READ barLimits CONSTANT)
  Q_PROPERTY(ambrel::TileDrag* drag READ drag CONSTANT)
  // Whether the tiles are on screen; otherwise their models need not update.
  Q_PROPERTY(bool widgetsActive READ widgetsActive NOTIFY widgetsActiveChanged)
  // The widgets that the licence does not allow.
  Q_PROPERTY(QStringList lockedWidgets READ lockedWidgets NOTIFY lockedWidgetsChanged)

 public:
  WidgetContext(AppModel& model, AppSettings& settings, QObject* parent = nullptr);

  AppModel* model() const { return &model_; }
  AppSettings* settings() const { return &settings_; }
  BarLimits* barLimits() { return &barLimits_; }
  TileDrag* drag() { return &drag_; }
  bool widgetsActive() const { return widgetsActive_; }
  void setWidgetsActive(bool active);
  const QStringList& lockedWidgets() const { return lockedWidgets_; }
  void setLockedWidgets(const QStringList& widgets);

  // The areas whose tiles may be on the bar.
  void addArea(Area& area) { areas_.push_back(&area); }
  // Null when it is not there.
  Area* area(const QString& name) const;
  // Where the tiles and panels of an area find their models: in the area, in the context, in the other areas.
  std::vector<const QObject*> modelsFor(const Area* area) const;
  // The first slot of the active profile that holds the widget; empty when none does.
  QString itemOf(const QString& widget) const;

 Q_SIGNALS:
  void widgetsActiveChanged();
  void lockedWidgetsChanged();
  // Asks the tile of this slot to act as if clicked, or to perform its menu command.
  void activationAsked(const QString& item);
  void menuCommandChosen(const QString& item);

  // Requests of tiles and panels to the program.
  void showToast(const QString& title, const QString& detail, const QString& symbol);
  void copyText(const QString& text);
  // Opens Ask Buddy; an empty question is for the user to type.
  void askBuddy(const QString& question);
  void openCustomize();
  void openSettings(const QString& tab);
  // Another page of the settings that are open.
  void chooseSettingsTab(const QString& tab);
  void openPurchasePage();
  // The guide is not shown at the next start.
  void finishWelcome();
  // Opens or closes a panel beside the tile of a slot.
  void openPanel(const QString& widget, const QString& item, const QUrl& source, const QVariantMap& properties);
  // What can be done with the tile of a slot; `ownText` names a command of the tile's own, empty without one.
  void openTileMenu(const QString& item, const QString& ownText, const QString& ownSymbol);
  // Says what the licence would give.
  void unlock(const QString& widget);

 private:
  AppModel& model_;
  AppSettings& settings_;
  BarLimits barLimits_;
  TileDrag drag_{model_};
  std::vector<Area*> areas_;
  QStringList lockedWidgets_;
  bool widgetsActive_ = false;
};

}  // namespace ambrel
