// The clipboard's model as QML sees it: identities and filters as texts, and what is said of the history in words.

#include <algorithm>
#include <array>
#include <set>

#include "app/base/StoredValue.h"
#include "app/clipboard/ClipboardModel.h"
#include "app/model/AppSettings.h"
#include "core/base/LocalText.h"
#include "core/base/Overloaded.h"

namespace ambrel {
namespace {

constexpr std::size_t mostPreviewText = 20'000;

std::optional<UUID> idOf(const QString& text) { return UUID::parse(text.toStdString()); }
QString textOfID(const UUID& id) { return QString::fromStdString(id.text()); }

struct Cleanup {
  const char* key;
  const char* title;
  ClipCleanup cleanup;
};

ClipCleanup olderThanDays(int days) { return {ClipCleanup::OlderThan{Seconds(days * 86400.0)}}; }
ClipCleanup allOf(ClipKind kind) { return {ClipCleanup::Matching{{ClipFilter::Kind{kind}}}}; }

const auto& cleanupTable() {
  static const std::array table{
      Cleanup{"older:1", QT_TRANSLATE_NOOP("ambrel::ClipboardModel", "Older than a day"), olderThanDays(1)},
      Cleanup{"older:7", QT_TRANSLATE_NOOP("ambrel::ClipboardModel", "Older than 7 days"), olderThanDays(7)},
      Cleanup{"older:30", QT_TRANSLATE_NOOP("ambrel::ClipboardModel", "Older than 30 days"), olderThanDays(30)},
      Cleanup{"kind:text", QT_TRANSLATE_NOOP("ambrel::ClipboardModel", "Texts"), allOf(ClipKind::text)},
      Cleanup{"kind:link", QT_TRANSLATE_NOOP("ambrel::ClipboardModel", "Links"), allOf(ClipKind::link)},
      Cleanup{"kind:color", QT_TRANSLATE_NOOP("ambrel::ClipboardModel", "Colors"), allOf(ClipKind::color)},
      Cleanup{"kind:image", QT_TRANSLATE_NOOP("ambrel::ClipboardModel", "Images"), allOf(ClipKind::image)},
      Cleanup{"kind:file", QT_TRANSLATE_NOOP("ambrel::ClipboardModel", "Files"), allOf(ClipKind::file)},
      Cleanup{"all", QT_TRANSLATE_NOOP("ambrel::ClipboardModel", "Everything"), {ClipCleanup::All{}}},
  };
  return table;
}

}  // namespace

QString ClipboardModel::filterText() const {
  return std::visit(
      Overloaded{
          [](const ClipFilter::All&) { return QStringLiteral("all"); },
          [](const ClipFilter::Pinned&) { return QStringLiteral("pinned"); },
          [](const ClipFilter::Kind& filter) { return QStringLiteral("kind:") + toQString(nameOf(filter.kind)); },
          [](const ClipFilter::Collection& filter) { return QStringLiteral("collection:") + textOfID(filter.id); }},
      filter_.value);
}

void ClipboardModel::setFilterText(const QString& text) {
  if (text == QLatin1String("all")) return setFilter({ClipFilter::All{}});
  if (text == QLatin1String("pinned")) return setFilter({ClipFilter::Pinned{}});
  const QString payload = text.section(u':', 1);
  if (text.startsWith(QLatin1String("kind:"))) {
    if (const auto kind = fromName<ClipKind>(payload.toStdString())) setFilter({ClipFilter::Kind{*kind}});
  } else if (text.startsWith(QLatin1String("collection:"))) {
    const auto id = idOf(payload);
    const auto& known = library().collections;
    if (id && std::ranges::find(known, *id, &ClipCollection::id) != known.end())
      setFilter({ClipFilter::Collection{*id}});
  }
}

QString ClipboardModel::focusedItemText() const { return focusedItemID_ ? textOfID(*focusedItemID_) : QString(); }

void ClipboardModel::setFocusedItemText(const QString& id) { setFocusedItemID(idOf(id)); }

QVariantList ClipboardModel::recentPrograms() {
  constexpr qsizetype most = 6;
  QVariantList list;
  std::set<std::string> seen{ownBundleID};
  for (const ClipItem& item : library().items) {
    if (list.size() == most) break;
    if (!item.sourceBundleID || !seen.insert(*item.sourceBundleID).second) continue;
    if (isIgnored(*item.sourceBundleID, settings_.ignoredBundleIDs())) continue;
    list.append(QVariantMap{{QStringLiteral("id"), toQString(*item.sourceBundleID)},
                            {QStringLiteral("name"), programName(*item.sourceBundleID)}});
  }
  return list;
}

void ClipboardModel::copyAsText(const QString& id) {
  const ClipItem* item = itemOf(id);
  if (item && item->text) write(textRepresentations(*item->text), item->id, Purpose::copy);
}

QString ClipboardModel::programName(const std::string& bundleID) {
  if (bundleID.empty()) return {};
  if (bundleID == ownBundleID) return QStringLiteral("Tilebay");
  auto& name = programNames_[bundleID];
  if (name.isEmpty()) name = toQString(seams_.workspace.nameOf(bundleID));
  return name;
}

void ClipboardModel::togglePin(const QString& id) {
  const auto item = idOf(id);
  if (item && !isReadOnly_) apply(history_.togglePin(*item));
}

void ClipboardModel::toggleCollection(const QString& item, const QString& collection) {
  const auto itemID = idOf(item), collectionID = idOf(collection);
  if (itemID && collectionID && !isReadOnly_) apply(history_.toggleCollection(*itemID, *collectionID));
}

const ClipItem* ClipboardModel::itemOf(const QString& id) const {
  const auto parsed = idOf(id);
  return parsed ? history_.item(*parsed) : nullptr;
}

QString ClipboardModel::collectionName(const QString& id) const {
  const auto wanted = idOf(id);
  const auto& all = library().collections;
  const auto found = std::ranges::find_if(all, [&](const ClipCollection& one) { return one.id == wanted; });
  return found == all.end() ? QString() : toQString(found->name);
}

bool ClipboardModel::isIn(const QString& item, const QString& collection) const {
  const auto collectionID = idOf(collection);
  const ClipItem* found = itemOf(item);
  return found && collectionID && found->collectionIDs.contains(*collectionID);
}

void ClipboardModel::createCollection(const QString& name, const QString& item) {
  if (!isLoaded_ || isReadOnly_) return;
  const UUID id = UUID::random();
  const HistoryEffects effects = history_.createCollection(id, name.toStdString());
  if (!effects.needsSave) return;
  apply(effects);
  toggleCollection(item, textOfID(id));
}

void ClipboardModel::renameCollection(const QString& id, const QString& name) {
  const auto collection = idOf(id);
  if (collection && !isReadOnly_) apply(history_.renameCollection(*collection, name.toStdString()));
}

void ClipboardModel::deleteCollection(const QString& id) {
  const auto collection = idOf(id);
  const QString name = collectionName(id);
  if (!collection || name.isEmpty() || !isLoaded_ || isReadOnly_) return;
  if (filter_ == ClipFilter{ClipFilter::Collection{*collection}}) setFilter({ClipFilter::All{}});
  apply(history_.deleteCollection(*collection));
  Q_EMIT undoableCountChanged();
  Q_EMIT collectionDeleted(name);
  endUndoLater();
}

void ClipboardModel::remove(const QString& id) {
  if (const auto item = idOf(id)) remove(std::span(&*item, 1), true);
}

QVariantList ClipboardModel::cleanups() const {
  QVariantList choices;
  for (const Cleanup& one : cleanupTable()) {
    const auto targets = ClipCleanup::targets(library().items, one.cleanup, seams_.now());
    if (targets.empty()) continue;
    choices.append(QVariantMap{{QStringLiteral("key"), QString::fromLatin1(one.key)},
                               {QStringLiteral("title"), tr(one.title)},
                               {QStringLiteral("count"), toQString(decimal(calendar_, double(targets.size()), 0))}});
  }
  return choices;
}

void ClipboardModel::cleanUp(const QString& key) {
  for (const Cleanup& one : cleanupTable()) {
    if (key != QLatin1String(one.key)) continue;
    std::vector<UUID> ids;
    for (const ClipItem& item : ClipCleanup::targets(library().items, one.cleanup, seams_.now()))
      ids.push_back(item.id);
    remove(ids, true);
  }
}

QString ClipboardModel::textOf(const QString& id) const {
  const ClipItem* item = itemOf(id);
  if (!item || !item->text) return {};
  // A character that is cut in two shows as a replacement; it is far beyond what anybody reads here.
  return toQString(std::string_view(*item->text).substr(0, mostPreviewText));
}

}  // namespace ambrel
