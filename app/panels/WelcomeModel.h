#pragma once
// What the guide shows of this computer: the tools that were found, and tiles to begin with.

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "app/base/GadgetListModel.h"
#include "app/model/AppModel.h"
#include "core/agents.h"
#include "core/calendar/CalendarFolders.h"

namespace ambrel {

struct FoundTool {
  Q_GADGET
  QML_VALUE_TYPE(foundTool)
  FACE_FIELDS(QString, name, detail, symbol);
  FACE_FIELD(bool, isFound);

 public:
  bool operator==(const FoundTool&) const = default;
};

struct StartingTile {
  Q_GADGET
  QML_VALUE_TYPE(startingTile)
  FACE_FIELDS(QString, widget, title, description);
  FACE_FIELD(int, span);  // as TileFrame counts it, 0 to 3
  FACE_FIELD(bool, isOnBar);

 public:
  bool operator==(const StartingTile&) const = default;
};

class WelcomeModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::RowList* tools READ tools CONSTANT FINAL)
  Q_PROPERTY(ambrel::RowList* tiles READ tiles CONSTANT FINAL)

 public:
  struct Places {
    std::filesystem::path home;
    AgentFolders agentFolders;
    UserHome userHome;
  };
  // The model outlives it.
  WelcomeModel(AppModel& model, Places places, QObject* parent = nullptr);

  RowList* tools() { return &tools_; }
  RowList* tiles() { return &tiles_; }

  // Looks for the tools.
  Q_INVOKABLE void look();

 private:
  void update();

  AppModel& model_;
  Places places_;
  GadgetListModel<FoundTool, &FoundTool::name> tools_;
  GadgetListModel<StartingTile, &StartingTile::widget> tiles_;
};

}  // namespace ambrel
