#include "app/agents/AgentHooksModel.h"

#include <stdexcept>

#include "app/base/StoredValue.h"

namespace ambrel {

AgentHooksModel::AgentHooksModel(AgentKind kind, const HookConnection::Places& places, QObject* parent)
    : ConnectionModel(parent), kind_(kind), hasTool_(!places.tool.empty()), hooks_(kind, places) {
  follow(hooks_.settings());
}

QString AgentHooksModel::title() const { return toQString(displayName(kind_)); }

QString AgentHooksModel::text() const {
  if (!isConnected())
    return tr("%1 then says itself, at once, when it waits for you and what it asks. Adds hooks to its settings, "
              "beside "
              "your own, and keeps a backup.")
        .arg(title());
  return kind_ == AgentKind::codex
             ? tr("Connected. Codex runs the hooks once you have trusted them there: type /hooks.")
             : tr("Connected. %1 says itself when it waits for you. Sessions that run already follow when they are "
                  "started again.")
                   .arg(title());
}

void AgentHooksModel::make() {
  if (!hasTool_) throw std::runtime_error("tilebayctl is not installed");
  hooks_.connect();
}

QString AgentHooksModel::cannotChange() const {
  return hasTool_ ? toQString(hooks_.cannotChange())
                  : tr("The command tilebayctl, which the hooks run, is not installed.");
}

}  // namespace ambrel
