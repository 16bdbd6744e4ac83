// The clipboard's model as QML sees it: identities and filters as texts, and what is said of the history in words.

#include <algorithm>
#include <array>
#include <cmath>

#include "app/base/StoredValue.h"
#include "app/clipboard/ClipboardModel.h"
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

QString ClipboardModel::summary() const {
  const auto pinned = std::ranges::count_if(library().items, &ClipItem::isPinned);
  const QString items = count() == 1 ? tr("1 item") : tr("%1 items").arg(count());
  return pinned == 0 ? items : tr("%1 · %2 pinned").arg(items).arg(pinned);
}

QString ClipboardModel::latestText() const {
  if (library().items.empty()) return {};
  const ClipItem& latest = library().items.front();
  const ClipFacts* facts = index_.find(latest.id);
  if (facts && facts->isSensitive) return tr("Secret");
  return toQString(clipName(latest));
}

void ClipboardModel::refreshAges() {
  const Instant now = seams_.now();
  items_.setNow(now);
  const auto& all = library().items;
  const QString age = all.empty() ? QString() : toQString(shortAge(calendar_, all.front().createdAt, now));
  if (age == latestAge_) return;
  latestAge_ = age;
  Q_EMIT latestAgeChanged();
}

QString ClipboardModel::programName(const std::string& bundleID) {
  if (bundleID == ownBundleID) return QStringLiteral("Tilebay");
  auto& name = programNames_[bundleID];
  if (name.isEmpty()) name = toQString(seams_.workspace.nameOf(bundleID));
  return name;
}

void ClipboardModel::togglePin(const QString& id) {
  if (const auto item = idOf(id)) togglePin(*item);
}

void ClipboardModel::toggleCollection(const QString& item, const QString& collection) {
  const auto itemID = idOf(item), collectionID = idOf(collection);
  if (itemID && collectionID) toggleCollection(*itemID, *collectionID);
}

bool ClipboardModel::isIn(const QString& item, const QString& collection) const {
  const auto itemID = idOf(item), collectionID = idOf(collection);
  const ClipItem* found = itemID ? history_.item(*itemID) : nullptr;
  return found && collectionID && found->collectionIDs.contains(*collectionID);
}

void ClipboardModel::createCollection(const QString& name, const QString& item) {
  const std::size_t before = library().collections.size();
  createCollection(name.toStdString());
  const auto itemID = idOf(item);
  if (itemID && library().collections.size() > before) toggleCollection(*itemID, library().collections.back().id);
}

void ClipboardModel::renameCollection(const QString& id, const QString& name) {
  if (const auto collection = idOf(id)) renameCollection(*collection, name.toStdString());
}

void ClipboardModel::deleteCollection(const QString& id) {
  if (const auto collection = idOf(id)) deleteCollection(*collection);
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
                               {QStringLiteral("count"), static_cast<int>(targets.size())}});
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
  const auto itemID = idOf(id);
  const ClipItem* item = itemID ? history_.item(*itemID) : nullptr;
  if (!item || !item->text) return {};
  // A character that is cut in two shows as a replacement; it is far beyond what anybody reads here.
  return toQString(std::string_view(*item->text).substr(0, mostPreviewText));
}

void ClipboardModel::lookAtFiles(const QString& id) {
  const auto itemID = idOf(id);
  const ClipItem* item = itemID ? history_.item(*itemID) : nullptr;
  if (item && item->kind == ClipKind::file) files_.lookAt(*item);
}

}  // namespace ambrel
