#include "app/panels/WelcomeModel.h"

#include <algorithm>
#include <utility>

#include "app/base/StoredValue.h"

namespace ambrel {
namespace {

constexpr DockWidget starting[] = {
    DockWidget::clock,    DockWidget::date,   DockWidget::weather,   DockWidget::nextEvent,
    DockWidget::buddy,    DockWidget::agents, DockWidget::clipboard, DockWidget::disk,
    DockWidget::cpu,      DockWidget::memory, DockWidget::network,   DockWidget::battery,
    DockWidget::pomodoro, DockWidget::water,  DockWidget::quickNote, DockWidget::todo};

bool isAnyThere(std::initializer_list<std::filesystem::path> places) {
  return std::ranges::any_of(places, [](const auto& place) {
    std::error_code error;
    return std::filesystem::exists(place, error);
  });
}

}  // namespace

WelcomeModel::WelcomeModel(AppModel& model, Places places, QObject* parent)
    : QObject(parent), model_(model), places_(std::move(places)) {
  connect(&model_, &AppModel::activeProfileChanged, this, &WelcomeModel::update);
  update();
}

void WelcomeModel::look() {
  const auto& home = places_.home;
  const auto calendars = foundCalendars(places_.userHome).size();
  std::vector<FoundTool> tools;
  const auto add = [&](const char* name, bool isFound, const QString& found, const QString& missing,
                       const char* symbol) {
    FoundTool tool;
    tool.name = QString::fromLatin1(name);
    tool.isFound = isFound;
    tool.detail = isFound ? found : missing;
    tool.symbol = QString::fromLatin1(symbol);
    tools.push_back(std::move(tool));
  };
  const QString sessions = tr("Its sessions are shown"),
                later = tr("Not used here yet; its sessions are shown once it is");
  add("Claude Code", isAnyThere({places_.agentFolders.claudeIn(home)}), sessions, later, "sparkles");
  add("Codex", isAnyThere({places_.agentFolders.codexIn(home)}), sessions, later, "sparkles");
  add("Cursor", isAnyThere({home / ".config/Cursor", home / "Library/Application Support/Cursor"}), sessions, later,
      "sparkles");
  add("Antigravity", isAnyThere({home / ".gemini/antigravity", home / ".gemini/antigravity-cli"}), sessions, later,
      "sparkles");
  add("Calendars", calendars > 0, tr("Found: %1").arg(calendars), tr("None found; add one in the settings"),
      "calendar");
  tools_.setRows(tools);
}

void WelcomeModel::update() {
  std::vector<StartingTile> tiles;
  for (const DockWidget widget : starting) {
    StartingTile tile;
    tile.widget = toQString(nameOf(widget));
    tile.title = toQString(title(widget));
    tile.description = toQString(description(widget));
    tile.span = static_cast<int>(defaultSize(widget));
    tile.isOnBar = model_.isOnBar(tile.widget);
    tiles.push_back(std::move(tile));
  }
  tiles_.setRows(tiles);
}

}  // namespace ambrel
