// The clipboard's model as QML sees it: identities and filters as texts, and what is said of the history in words.

#include <QColor>
#include <algorithm>
#include <array>
#include <cmath>
#include <set>

#include "app/base/StoredValue.h"
#include "app/clipboard/ClipboardModel.h"
#include "app/model/AppSettings.h"
#include "core/base/LocalText.h"
#include "core/base/Overloaded.h"
#include "core/clipboard/CodeWords.h"

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

QString ClipboardModel::countText() const { return toQString(decimal(calendar_, count(), 0)); }

QString ClipboardModel::summary() const {
  const auto pinned = std::ranges::count_if(library().items, &ClipItem::isPinned);
  const QString counted = count() == 1 ? tr("1 item") : tr("%1 items").arg(countText());
  const QString items = isReadOnly_ ? tr("%1 · read-only, another Tilebay keeps them").arg(counted) : counted;
  return pinned == 0 ? items : tr("%1 · %2 pinned").arg(items, toQString(decimal(calendar_, double(pinned), 0)));
}

QString ClipboardModel::emptyTitle() const {
  if (!query_.trimmed().isEmpty()) return tr("No matches");
  if (count() > 0) return tr("Nothing here yet");
  return settings_.clipboardEnabled() ? tr("Nothing copied yet") : tr("The clipboard history is off");
}

QString ClipboardModel::emptySentence() const {
  if (!query_.trimmed().isEmpty()) return tr("No clip here has this text.");
  if (std::holds_alternative<ClipFilter::Pinned>(filter_.value)) return tr("Pin a clip with the star on its card.");
  if (std::holds_alternative<ClipFilter::Collection>(filter_.value))
    return tr("Put clips into this collection from their menus.");
  if (count() > 0) return tr("There is no clip of this kind.");
  return settings_.clipboardEnabled() ? tr("What you copy in any program appears here.")
                                      : tr("Switch it on in the clipboard settings.");
}

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

bool ClipboardModel::hasTextBeside(const QString& id) const {
  const ClipItem* item = itemOf(id);
  return item && item->kind == ClipKind::image && item->text;
}

void ClipboardModel::copyAsText(const QString& id) {
  const ClipItem* item = itemOf(id);
  if (item && item->text) write(textRepresentations(*item->text), item->id, Purpose::copy);
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
  QString age, line;
  if (!all.empty()) {
    age = toQString(shortAge(calendar_, all.front().createdAt, now));
    line = tr("Last copy %1").arg(toQString(relativeAge(calendar_, all.front().createdAt, now)));
  }
  if (age == latestAge_ && line == latestLine_) return;
  latestAge_ = age;
  latestLine_ = line;
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

const ClipItem* ClipboardModel::itemOf(const QString& id) const {
  const auto parsed = idOf(id);
  return parsed ? history_.item(*parsed) : nullptr;
}

bool ClipboardModel::isPinned(const QString& id) const {
  const ClipItem* item = itemOf(id);
  return item && item->isPinned;
}

bool ClipboardModel::isCode(const QString& id) const {
  const ClipItem* item = itemOf(id);
  const ClipFacts* facts = item ? index_.find(item->id) : nullptr;
  return facts && (facts->preview.look == ClipLook::code || facts->preview.look == ClipLook::secret);
}

QString ClipboardModel::codeMarkup(const QString& code, const QColor& keyword, const QColor& assigned,
                                   const QColor& quoted, const QColor& comment) const {
  const std::string bytes = code.toStdString();
  QString markup;
  for (const CodePiece& piece : codePieces(bytes)) {
    QString text = toQString(piece.text).toHtmlEscaped();
    text.replace(u'\t', QStringLiteral("    ")).replace(u' ', QStringLiteral("&nbsp;"));
    text.replace(u'\n', QStringLiteral("<br/>"));
    const auto add = [&](const QColor& color) {
      markup += QStringLiteral("<font color=\"%1\">%2</font>").arg(color.name(), text);
    };
    switch (piece.word) {
      case CodeWord::plain:
        markup += text;
        break;
      case CodeWord::keyword:
        add(keyword);
        break;
      case CodeWord::assigned:
        add(assigned);
        break;
      case CodeWord::quoted:
        add(quoted);
        break;
      case CodeWord::comment:
        add(comment);
        break;
    }
  }
  return markup;
}

QString ClipboardModel::pictureOf(const QString& id) const {
  const ClipItem* item = itemOf(id);
  return item && item->imageFileName ? toQString(*item->imageFileName) : QString();
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

void ClipboardModel::lookAtFiles(const QString& id) {
  const ClipItem* item = itemOf(id);
  if (item && item->kind == ClipKind::file) files_.lookAt(*item);
}

}  // namespace ambrel
