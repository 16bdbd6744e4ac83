#include "app/stores/EditedList.h"

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/web/Address.h"

namespace ambrel {
namespace {

std::optional<UUID> parsed(const QString& id) { return UUID::parse(id.toStdString()); }

// A text of several lines in one, as far as a row has room.
QString inOneLine(const std::string& text) {
  constexpr qsizetype most = 300;
  return toQString(text).left(most).simplified();
}

QString nameOf(const ListEntry& entry) { return inOneLine(entry.title.empty() ? entry.text : entry.title); }

}  // namespace

EditedList::EditedList(ListKind kind, std::filesystem::path file, const QString& name, Shell& shell, QObject* parent)
    : QObject(parent), file_(kind, std::move(file)), keeper_(file_, name, shell) {
  keep({&rows_});
  connect(&keeper_, &DocumentKeeper::takenOver, this, [this] {
    update();
    Q_EMIT takenOver();
  });
  connect(&keeper_, &DocumentKeeper::problemChanged, this, &EditedList::update);
}

QString EditedList::add(const QString& typed) {
  ListEntry entry{
      .id = UUID::random(), .title = typed.trimmed().toStdString(), .text = {}, .isDone = false, .others = {}};
  if (entry.title.empty()) return {};
  switch (file_.kind()) {
    case ListKind::todos:
      break;
    case ListKind::snippets:
      entry.text = std::exchange(entry.title, {});
      break;
    case ListKind::bookmarks: {
      const auto address = pageAddress(entry.title);
      if (!address) return {};
      entry.text = *address;
      entry.title = siteName(*address);
      break;
    }
  }
  const QString id = toQString(entry.id.text());
  file_.edit().push_back(std::move(entry));
  keeper_.save();
  update();
  return id;
}

void EditedList::edit(const QString& id, const QString& title, const QString& text) {
  const auto parsedID = parsed(id);
  ListEntry* entry = parsedID ? findEntry(file_.edit(), *parsedID) : nullptr;
  if (!entry) return;
  const bool needsTitle = file_.kind() == ListKind::todos;
  if (!needsTitle || !title.trimmed().isEmpty()) entry->title = title.trimmed().toStdString();
  if (file_.kind() == ListKind::snippets) entry->text = text.toStdString();
  if (!file_.isChanged()) return;
  keeper_.saveSoon();
  update();
}

void EditedList::setText(const QString& id, std::string text) {
  const auto parsedID = parsed(id);
  ListEntry* entry = parsedID ? findEntry(file_.edit(), *parsedID) : nullptr;
  if (!entry || entry->text == text) return;
  entry->text = std::move(text);
  update();
}

void EditedList::toggle(const QString& id) {
  const auto parsedID = parsed(id);
  ListEntry* entry = parsedID ? findEntry(file_.edit(), *parsedID) : nullptr;
  if (!entry) return;
  entry->isDone = !entry->isDone;
  keeper_.save();
  update();
}

void EditedList::move(const QString& id, int places) {
  const auto parsedID = parsed(id);
  if (!parsedID || !moveEntry(file_.edit(), *parsedID, places)) return;
  keeper_.saveSoon();
  update();
}

void EditedList::remove(const QString& id) {
  if (const auto parsedID = parsed(id)) keepRemoval(removeEntry(file_.edit(), *parsedID));
}

void EditedList::removeDone() { keepRemoval(ambrel::removeDone(file_.edit())); }

void EditedList::keepRemoval(Removal removal) {
  constexpr std::size_t most = 50;
  if (removal.empty()) return;
  removals_.push_back(std::move(removal));
  if (removals_.size() > most) removals_.erase(removals_.begin());
  keeper_.save();
  update();
}

void EditedList::undo() {
  if (removals_.empty()) return;
  restore(file_.edit(), removals_.back());
  removals_.pop_back();
  keeper_.save();
  update();
}

QString EditedList::textOf(const QString& id) const {
  const auto parsedID = parsed(id);
  const ListEntry* entry = parsedID ? findEntry(entries(), *parsedID) : nullptr;
  return entry ? toQString(entry->text.empty() ? entry->title : entry->text) : QString();
}

void EditedList::update() {
  std::vector<EntryRow> rows;
  ListFace face;
  for (const ListEntry& entry : entries()) {
    EntryRow row{.id = toQString(entry.id.text()),
                 .title = toQString(entry.title),
                 .text = toQString(entry.text),
                 .name = nameOf(entry),
                 .detail = entry.title.empty() ? QString() : inOneLine(entry.text),
                 .picture = {},
                 .letter = {},
                 .isDone = entry.isDone};
    complete(row);
    if (row.isDone)
      ++face.done;
    else if (face.first.isEmpty())
      face.first = row.name;
    else if (face.second.isEmpty())
      face.second = row.name;
    rows.push_back(std::move(row));
  }
  face.count = static_cast<int>(rows.size());
  face.problem = keeper_.problem();
  if (!removals_.empty())
    face.removed = removals_.back().size() == 1 ? tr("Removed “%1”").arg(nameOf(removals_.back().front().entry))
                                                : tr("Removed %1 entries").arg(removals_.back().size());
  rows_.setRows(rows);
  if (replaced(face_, std::move(face))) Q_EMIT faceChanged();
}

}  // namespace ambrel
