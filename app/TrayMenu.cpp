#include "app/TrayMenu.h"

#include <QGuiApplication>

#include "app/agents/AgentsModel.h"
#include "app/kit/Theme.h"
#include "app/menu/StatusIcon.h"
#include "app/model/AppModel.h"
#include "app/model/AppSettings.h"
#include "app/model/LicenseManager.h"

namespace ambrel {
namespace {

// The toolkit calls Super by another name.
std::string shortcutOf(const KeyCombination& keys) {
  std::string text = keysText(keys);
  if (const auto at = text.find("Super"); at != text.npos) text.replace(at, 5, "Meta");
  return text;
}

}  // namespace

TrayMenu::TrayMenu(const AppModel& model, const AppSettings& settings, const AgentsModel& agents,
                   const LicenseManager& license, const Theme& theme, Tray& tray, StatusItem::Handler handler)
    : model_(model),
      settings_(settings),
      agents_(agents),
      license_(license),
      tray_(tray),
      item_([&theme](int attention) { return statusIcon(attention, theme.palette()); }, std::move(handler)) {
  for (const auto changed : {&AppModel::profilesChanged, &AppModel::pinnedProfileIDChanged, &AppModel::displaysChanged})
    connect(&model, changed, this, &TrayMenu::update);
  connect(&settings, &AppSettings::changed, this, &TrayMenu::update);
  connect(&agents, &AgentsModel::sessionsChanged, this, &TrayMenu::update);
  connect(&license, &LicenseManager::changed, this, &TrayMenu::update);
  connect(&theme, &Theme::schemeChanged, this, [this] { item_.redrawIcon(); });
  update();
  tray_.whenThere([this] { item_.show(); });
  // For task lists, in which Disk Doctor is.
  QGuiApplication::setWindowIcon(statusIcon(0, theme.palette()));
}

void TrayMenu::update() {
  const Profile* active = model_.activeProfile();
  item_.update(menuModel({.profiles = model_.profiles(),
                          .activeProfileID = active ? std::optional(active->id) : std::nullopt,
                          .pinnedProfileID = model_.pinnedProfileID(),
                          .displays = model_.displays(),
                          .workingCount = agents_.face().working,
                          .needsInputCount = agents_.face().needsInput,
                          .isAgentTrackingAllowed = license_.allows(ProFeature::agentTracking),
                          .isPro = license_.isPro(),
                          .shelfShortcut = shortcutOf(settings_.read(setting::shelfKeys))}));
}

}  // namespace ambrel
