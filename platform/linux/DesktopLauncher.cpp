#include "platform/linux/DesktopLauncher.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>
#include <algorithm>
#include <unistd.h>

#include "core/base/Files.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

Shortcut shortcutOf(const DesktopEntry& entry, const DesktopAction* action) {
  if (!action) return {entry.id, entry.name, entry.name, entry.icon};
  return {entry.id + "/" + action->id, action->name, entry.name, action->icon.empty() ? entry.icon : action->icon};
}

bool isScript(std::string_view id) {
  const auto status = fileStatus(id);
  return status && status->isRegular && access(std::string(id).c_str(), X_OK) == 0;
}

// The path at which a program of this name answers.
QString objectPath(const std::string& name) {
  QString path = u'/' + QString::fromStdString(name);
  return path.replace(u'.', u'/').replace(u'-', u'_');
}

// Nobody took the call, so that starting the program again does nothing twice.
bool wasNotTaken(const QDBusError& error) {
  using enum QDBusError::ErrorType;
  const auto type = error.type();
  return type == ServiceUnknown || type == UnknownMethod || type == UnknownObject || type == UnknownInterface ||
         type == AccessDenied || error.name().startsWith(QLatin1String("org.freedesktop.DBus.Error.Spawn"));
}

}  // namespace

std::vector<Shortcut> DesktopLauncher::offered() {
  std::vector<Shortcut> all;
  for (const DesktopEntry& entry : programs_.entries()) {
    if (entry.isHidden || !entry.isInMenus || (!entry.tryExec.empty() && !programs_.command(entry.tryExec))) continue;
    all.push_back(shortcutOf(entry, nullptr));
    for (const DesktopAction& action : entry.actions) all.push_back(shortcutOf(entry, &action));
  }
  // What a program offers comes behind it.
  std::ranges::stable_sort(all, {}, [](const Shortcut& one) { return asciiLower(one.program); });
  return all;
}

std::optional<DesktopLauncher::Found> DesktopLauncher::lookUp(std::string_view id) {
  const auto slash = id.find('/');
  auto program = programs_.find(id.substr(0, slash));
  if (!program) return std::nullopt;
  if (slash == id.npos) return Found{std::move(*program), std::nullopt};
  const auto& actions = program->entry.actions;
  const auto action = std::ranges::find(actions, id.substr(slash + 1), &DesktopAction::id);
  if (action == actions.end()) return std::nullopt;
  return Found{*program, *action};
}

std::optional<Shortcut> DesktopLauncher::find(std::string_view id) {
  if (id.starts_with('/')) {
    if (!isScript(id)) return std::nullopt;
    const std::filesystem::path path(id);
    return Shortcut{std::string(id), path.filename().string(), path.parent_path().string(), {}};
  }
  const auto found = lookUp(id);
  if (!found) return std::nullopt;
  return shortcutOf(found->program.entry, found->action ? &*found->action : nullptr);
}

bool DesktopLauncher::run(std::string_view id) {
  if (id.starts_with('/')) return isScript(id) && startDetached({std::string(id)}, {});
  const auto found = lookUp(id);
  if (!found) return false;
  const auto start = [this, found = *found] {
    const DesktopEntry& entry = found.program.entry;
    const std::string file = found.program.file.string();
    auto command = found.action ? commandOf(entry, *found.action, file) : commandOf(entry, file);
    const auto executable = command ? programs_.command(command->front()) : std::nullopt;
    if (!executable) return false;
    command->front() = executable->string();
    if (entry.runsInTerminal) command = programs_.inTerminal(*command);
    return startDetached(*command, entry.workingFolder);
  };
  const DesktopEntry& entry = found->program.entry;
  if (!entry.isActivatedByBus || !bus_.isConnected()) return start();
  const QString method = found->action ? QStringLiteral("ActivateAction") : QStringLiteral("Activate");
  QDBusMessage call = QDBusMessage::createMethodCall(QString::fromStdString(entry.id), objectPath(entry.id),
                                                     QStringLiteral("org.freedesktop.Application"), method);
  if (found->action) call << QString::fromStdString(found->action->id) << QVariantList();
  call << QVariantMap();
  auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), QCoreApplication::instance());
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, start] {
    watcher->deleteLater();
    if (const QDBusPendingReply<> reply = *watcher; reply.isError() && wasNotTaken(reply.error())) start();
  });
  return true;
}

}  // namespace ambrel
