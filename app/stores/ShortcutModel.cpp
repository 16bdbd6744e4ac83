#include "app/stores/ShortcutModel.h"

#include <algorithm>

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"

namespace ambrel {
namespace {

QString fileName(const std::string& path) { return toQString(path.substr(path.rfind('/') + 1)); }

DefaultsValue stored(const std::vector<std::string>& texts) {
  DefaultsArray array;
  for (const std::string& text : texts) array.push_back({text});
  return {std::move(array)};
}

}  // namespace

ShortcutModel::ShortcutModel(Seams seams, Shell& shell, QObject* parent)
    : QObject(parent), seams_(std::move(seams)), shell_(shell) {
  keep({&rows_});
}

std::vector<std::string> ShortcutModel::scripts() const {
  return seams_.defaults.strings(scriptsKey).value_or(std::vector<std::string>());
}

void ShortcutModel::reload() {
  chosen_ = seams_.defaults.string(chosenKey).value_or("");
  ShortcutFace face;
  face.isChosen = !chosen_.empty();
  if (const auto found = face.isChosen ? seams_.launcher.find(chosen_) : std::nullopt) {
    face.name = toQString(found->name);
    face.program = toQString(found->program);
    face.picture = seams_.picture(found->icon);
  } else if (face.isChosen) {
    face.name = fileName(chosen_);
    face.problem = tr("%1 is not there any more").arg(face.name);
  }
  if (!removed_.empty()) face.removed = tr("Removed “%1”").arg(fileName(removed_.back().second));
  if (replaced(face_, std::move(face))) Q_EMIT faceChanged();
  updateRows();
}

void ShortcutModel::search(const QString& query) {
  query_ = seams_.folding.folded(query.trimmed().toStdString());
  offered_ = seams_.launcher.offered();
  updateRows();
}

void ShortcutModel::updateRows() {
  std::vector<ShortcutRow> rows;
  const auto add = [&](const Shortcut& one, bool isScript) {
    const std::string text = seams_.folding.folded(one.name + ' ' + one.program);
    if (!query_.empty() && !seams_.folding.contains(text, query_)) return;
    ShortcutRow row;
    row.id = toQString(one.id);
    row.name = toQString(one.name);
    row.detail = one.program == one.name ? QString() : toQString(one.program);
    row.picture = seams_.picture(one.icon);
    row.isChosen = one.id == chosen_;
    row.isScript = isScript;
    rows.push_back(std::move(row));
  };
  for (const std::string& path : scripts()) {
    const auto found = seams_.launcher.find(path);
    add(found.value_or(Shortcut{path, fileName(path).toStdString(), tr("cannot be run").toStdString(), {}}), true);
  }
  for (const Shortcut& one : offered_) add(one, false);
  rows_.setRows(rows);
}

void ShortcutModel::choose(const QString& id) {
  store(seams_.defaults, chosenKey, DefaultsValue{id.toStdString()});
  reload();
}

void ShortcutModel::chooseFirst() {
  if (!rows_.rows().empty()) choose(QString(rows_.rows().front().id));
}

void ShortcutModel::run() {
  const bool isStarted = seams_.launcher.run(chosen_);
  reload();
  if (isStarted)
    shell_.showToast(tr("Started %1").arg(face_.name), {}, QStringLiteral("command"));
  else
    shell_.showToast(tr("%1 cannot be started").arg(face_.name), face_.problem,
                     QStringLiteral("exclamationmark.triangle"));
}

std::function<void(const std::string&)> ShortcutModel::scriptChooser() {
  return [this, keep = storeLater(seams_.defaults, chosenKey)](const std::string& path) {
    if (!seams_.launcher.find(path)) {
      shell_.showToast(tr("%1 cannot be run").arg(fileName(path)), tr("The file is not marked as a program."),
                       QStringLiteral("exclamationmark.triangle"));
      return;
    }
    std::vector<std::string> all = scripts();
    if (std::ranges::find(all, path) == all.end()) {
      all.push_back(path);
      store(seams_.defaults, scriptsKey, stored(all));
    }
    keep({path});
    reload();
  };
}

void ShortcutModel::removeScript(const QString& id) {
  std::vector<std::string> all = scripts();
  const auto found = std::ranges::find(all, id.toStdString());
  if (found == all.end()) return;
  removed_.emplace_back(static_cast<std::size_t>(found - all.begin()), *found);
  all.erase(found);
  store(seams_.defaults, scriptsKey, stored(all));
  reload();
}

void ShortcutModel::undo() {
  if (removed_.empty()) return;
  auto [place, path] = std::move(removed_.back());
  removed_.pop_back();
  std::vector<std::string> all = scripts();
  if (std::ranges::find(all, path) == all.end())
    all.insert(all.begin() + static_cast<std::ptrdiff_t>(std::min(place, all.size())), path);
  store(seams_.defaults, scriptsKey, stored(all));
  reload();
}

}  // namespace ambrel
