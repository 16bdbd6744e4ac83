// What the shelf asks of the clipboard's model, by the texts of identities.

#include <algorithm>
#include <set>

#include "app/base/StoredValue.h"
#include "app/clipboard/ClipboardModel.h"
#include "app/model/AppSettings.h"
#include "core/base/LocalText.h"

namespace ambrel {
namespace {

constexpr std::size_t mostPreviewText = 20'000;

std::optional<UUID> idOf(const QString& text) { return UUID::parse(text.toStdString()); }
QString textOfID(const UUID& id) { return QString::fromStdString(id.text()); }

}  // namespace

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
  if (filter_ == ClipFilter{ClipFilter::Collection{*collection}}) setFilter(QStringLiteral("all"));
  apply(history_.deleteCollection(*collection));
  Q_EMIT undoableCountChanged();
  Q_EMIT collectionDeleted(name);
  endUndoLater();
}

void ClipboardModel::remove(const QString& id) {
  if (const auto item = idOf(id)) remove(std::span(&*item, 1));
}

QVariantList ClipboardModel::cleanups() const {
  QVariantList choices;
  for (const ClipCleanup::Offer& offer : ClipCleanup::offers(library().items, seams_.now()))
    choices.append(
        QVariantMap{{QStringLiteral("key"), toQString(offer.key)},
                    {QStringLiteral("title"), toQString(offer.title)},
                    {QStringLiteral("count"), toQString(decimal(calendar_, static_cast<double>(offer.count), 0))}});
  return choices;
}

void ClipboardModel::cleanUp(const QString& key) {
  const auto cleanup = ClipCleanup::named(key.toStdString());
  if (!cleanup) return;
  std::vector<UUID> ids;
  for (const ClipItem& item : ClipCleanup::targets(library().items, *cleanup, seams_.now())) ids.push_back(item.id);
  remove(ids);
}

QString ClipboardModel::textOf(const QString& id) const {
  const ClipItem* item = itemOf(id);
  if (!item || !item->text) return {};
  // A character cut in half at the end shows as a replacement character.
  return toQString(std::string_view(*item->text).substr(0, mostPreviewText));
}

}  // namespace ambrel
