#include "app/assistant/AssistantArea.h"

#include "app/base/QmlObjects.h"
#include "core/settings.h"

namespace ambrel {

AssistantArea::AssistantArea(Seams seams, QObject* parent)
    : Area(QStringLiteral("Assistant"), parent),
      buddy_(seams.buddy),
      actions_(seams.actions),
      assistant_({.model = seams.model,
                  .buddy = seams.buddy,
                  .performer = [this] { return actions_.performer(); },
                  .now = seams.actions.now}),
      server_(seams.defaults, seams.model) {
  keep({this, &assistant_, &server_});
}

void AssistantArea::defaultsChanged(const std::set<std::string>& keys) {
  for (const SettingRow* row : std::initializer_list<const SettingRow*>{
           &setting::askUsesModel, &setting::modelServerURL, &setting::modelServerAllowedURL, &setting::modelName})
    if (keys.contains(row->key)) return server_.reload();
}

bool AssistantArea::carryOut(const Wish& wish) {
  if (std::holds_alternative<wish::ToggleAssistant>(wish)) {
    Q_EMIT panelAsked();
    return true;
  }
  const auto* ask = std::get_if<wish::Ask>(&wish);
  if (ask) Q_EMIT asked(QString::fromStdString(ask->text));
  return ask != nullptr;
}

std::vector<AreaKey> AssistantArea::keys() {
  return {{&setting::askKeys, [this] { Q_EMIT panelAsked(); }, "--toggle-assistant"}};
}

}  // namespace ambrel
