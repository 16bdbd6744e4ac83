#include "app/clipboard/ClipboardModel.h"

#include <QPointer>
#include <algorithm>
#include <utility>

#include "app/base/Log.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "app/model/AppSettings.h"
#include "core/base/LocalText.h"
#include "core/base/Whitespace.h"

namespace ambrel {

ClipboardModel::ClipboardModel(AppSettings& settings, std::filesystem::path folder, Calendar calendar, Seams seams,
                               QObject* parent)
    : QObject(parent),
      settings_(settings),
      calendar_(std::move(calendar)),
      seams_(std::move(seams)),
      folding_(SearchFolding::forLocale(calendar_.locale())),
      history_({}, seams_.pasteboard.changeCount()),
      storage_(std::move(folder), seams_.background, seams_.later, [this] { return history_.library(); }),
      capture_(storage_, seams_.background, folding_),
      index_(folding_),
      files_(seams_.fileBackground, [this](const UUID& id) { items_.refresh(id); }),
      items_(index_, calendar_,
             [this](const UUID& id) {
               const ClipItem* item = history_.item(id);
               return item ? files_.lookAt(*item) : nullptr;
             }),
      firstChange_(history_.lastChangeCount()) {
  capture_.onCaptured = [this](std::optional<CapturedClip> clip, std::int64_t change) {
    if (clip)
      add(std::move(*clip), change);
    else
      Q_EMIT pasteboardChanged();
  };
  storage_.onSaveFailed = [this](const std::string& reason) {
    Q_EMIT troubled(tr("The clipboard history cannot be saved"), toQString(reason));
  };
  storage_.picturesInUse = [this] {
    auto names = history_.usedImages();
    names.merge(capture_.waitingPictures());
    return names;
  };
  connect(&settings_, &AppSettings::clipboardEnabledChanged, this, &ClipboardModel::publishFace);
  const auto setSensitiveAge = [this] { items_.setSensitiveAge(captureSettings().sensitiveAge()); };
  connect(&settings_, &AppSettings::clipboardForgetSensitiveChanged, this, setSensitiveAge);
  setSensitiveAge();
  publishFace();
}

ClipboardModel::~ClipboardModel() {
  seams_.pasteboard.setChangeHandler(nullptr);
  seams_.pasteboard.setOwnerGoneHandler(nullptr);
}

void ClipboardModel::start() {
  storage_.load(folding_, [this](ClipboardStorage::Loaded loaded) { begin(std::move(loaded)); });
}

void ClipboardModel::begin(ClipboardStorage::Loaded loaded) {
  isLoaded_ = true;
  if (std::exchange(isReadOnly_, loaded.isReadOnly) != isReadOnly_ && isReadOnly_)
    Q_EMIT troubled(tr("The clipboard history is read-only"),
                    tr("Another Tilebay of yours keeps it. Copies stay out."));
  index_ = std::move(loaded.index);
  history_ = ClipboardHistory(std::move(loaded.library), history_.lastChangeCount());
  seams_.pasteboard.setChangeHandler([this] { poll(); });
  seams_.pasteboard.setOwnerGoneHandler([this] { restoreCurrent(); });
  publish();
  poll();
}

CaptureSettings ClipboardModel::captureSettings() const {
  return {.isEnabled = settings_.clipboardEnabled(),
          .limit = settings_.clipboardLimit(),
          .maxAgeDays = settings_.clipboardMaxAgeDays(),
          .forgetsSensitive = settings_.clipboardForgetSensitive(),
          .ignoredBundleIDs = settings_.ignoredBundleIDs()};
}

void ClipboardModel::poll() {
  if (!isLoaded_) return;
  const Instant now = seams_.now();
  if (!isReadOnly_)
    apply(history_.sweep(now, captureSettings(), [this](const ClipItem& item) { return index_.of(item).isSensitive; }));
  const auto minute = std::chrono::floor<std::chrono::minutes>(now).time_since_epoch().count();
  if (std::exchange(lastMinute_, minute) != minute) {
    refreshAges();
    if (isReadOnly_) tryToTakeOver();
  }
  const std::int64_t change = seams_.pasteboard.changeCount();
  if (change == history_.lastChangeCount()) return;

  CaptureSettings settings = captureSettings();
  const std::vector<std::string> front = seams_.workspace.frontmost();
  const auto ignored =
      std::ranges::find_if(front, [&](const std::string& id) { return isIgnored(id, settings.ignoredBundleIDs); });
  std::optional<std::string> source;
  if (ignored != front.end())
    settings.ignoredBundleIDs.push_back(source.emplace(*ignored));
  else if (!front.empty())
    source = front.front();

  ownerlessChange_.reset();
  const bool isRead = history_.noticeChange(change, settings, source) && !isReadOnly_;
  if (!isRead) return publishCurrent();
  // Others are told once it is read: until then nothing is known of what is there.
  items_.setCurrent(history_.currentItemID());
  read({.id = UUID::random(), .now = now, .sourceBundleID = std::move(source)});
}

// An entry is a stored identifier or the name that the cards show.
bool ClipboardModel::isIgnored(const std::string& bundleID, const std::vector<std::string>& ignored) {
  return std::ranges::any_of(ignored, [&](const std::string& entry) {
    return entry == bundleID || toQString(entry).compare(programName(bundleID), Qt::CaseInsensitive) == 0;
  });
}

void ClipboardModel::tryToTakeOver() {
  storage_.tryLock([this](bool isOurs) {
    if (isOurs) start();
  });
}

CaptureLimits ClipboardModel::captureLimits() const {
  constexpr std::size_t megabyte = 1 << 20;
  const auto bytes = [](std::int64_t megabytes) { return static_cast<std::size_t>(megabytes) * megabyte; };
  return {.text = bytes(settings_.clipboardTextMegabytes()),
          .picture = bytes(settings_.clipboardPictureMegabytes()),
          .fileList = bytes(settings_.clipboardListMegabytes())};
}

void ClipboardModel::read(ClipOrigin origin) {
  seams_.pasteboard.read({.wantsPicture = true, .limits = captureLimits()},
                         [self = QPointer(this), origin = std::move(origin)](PasteboardReading reading) {
                           // A later copy is read separately.
                           if (!self || reading.changeCount != self->history_.lastChangeCount()) return;
                           if (reading.contents.lost) return self->addLost(*reading.contents.lost, origin);
                           self->capture_.take(std::move(reading.contents), reading.changeCount, origin);
                         });
}

void ClipboardModel::addLost(const LostCopy& lost, const ClipOrigin& origin) {
  constexpr std::size_t mostLost = 8;
  logLine(lost.reason == LostCopy::Reason::tooLarge ? "a copy is too large to keep" : "a copy was not handed over");
  const QString program = programName(origin.sourceBundleID.value_or(""));
  // Repeated failures of one program share a card.
  std::erase_if(lost_, [&](const ClipRow& row) { return row.program == program && row.lost->reason == lost.reason; });
  lost_.insert(lost_.begin(),
               {.id = origin.id, .kind = lost.kind, .createdAt = origin.now, .program = program, .lost = lost});
  if (lost_.size() > mostLost) lost_.pop_back();
  publishRows();
  Q_EMIT pasteboardChanged();
}

void ClipboardModel::add(CapturedClip clip, std::int64_t changeCount) {
  const auto current = history_.currentItemID();
  const HistoryEffects effects = history_.add(std::move(clip.item), captureSettings());
  // A second copy of the same content keeps its identity. No item is current if the limit leaves no room for it.
  if (const auto id = history_.currentItemID()) {
    index_.put(*id, std::move(clip.facts));
    files_.expire(*id);
  }
  if (changeCount != history_.lastChangeCount()) history_.noticeOwnWrite(history_.lastChangeCount(), current);
  apply(effects);
  if (ownerlessChange_ == changeCount) restoreCurrent();
  Q_EMIT pasteboardChanged();
}

// The application that owned the copy has quit: offers its contents in its place.
void ClipboardModel::restoreCurrent() {
  if (seams_.pasteboard.changeCount() != history_.lastChangeCount()) return;
  const auto& current = history_.currentItemID();
  if (!current)
    ownerlessChange_ = history_.lastChangeCount();
  else if (const ClipItem* item = history_.item(*current))
    put(*item, Purpose::restore);
}

void ClipboardModel::write(std::vector<Representation> representations, std::optional<UUID> id, Purpose purpose) {
  ++writeGeneration_;
  ownerlessChange_.reset();
  history_.noticeOwnWrite(purpose == Purpose::restore ? seams_.pasteboard.restore(std::move(representations))
                                                      : seams_.pasteboard.write(std::move(representations)),
                          id);
  publishCurrent();
}

void ClipboardModel::copy(const ClipItem& item) { put(item, Purpose::copy); }

void ClipboardModel::put(const ClipItem& item, Purpose purpose) {
  if (item.kind != ClipKind::image || !item.imageFileName)
    return write(representations(item, std::nullopt), item.id, purpose);
  storage_.readPicture(*item.imageFileName, [this, item, purpose, generation = ++writeGeneration_,
                                             change = seams_.pasteboard.changeCount()](auto bytes) {
    // Something else was copied in the meantime.
    if (generation != writeGeneration_ || change != seams_.pasteboard.changeCount()) return;
    write(representations(item, std::move(bytes)), item.id, purpose);
  });
}

void ClipboardModel::publishCurrent() {
  items_.setCurrent(history_.currentItemID());
  Q_EMIT pasteboardChanged();
}

void ClipboardModel::readText(std::function<void(std::string text)> done) {
  if (const auto& current = history_.currentItemID()) {
    const ClipItem* item = this->item(*current);
    const bool isText = item && item->kind != ClipKind::image && item->kind != ClipKind::file;
    return done(isText ? item->text.value_or("") : "");
  }
  const bool isFollowed =
      settings_.clipboardEnabled() && !isReadOnly_ && seams_.pasteboard.changeCount() != firstChange_;
  if (isFollowed) return done("");
  seams_.pasteboard.read(
      {.wantsPicture = false, .limits = captureLimits()},
      [done = std::move(done)](PasteboardReading reading) { done(reading.contents.text.value_or("")); });
}

void ClipboardModel::writeUnrecorded(std::vector<Representation> representations) {
  write(std::move(representations), std::nullopt, Purpose::copy);
}

void ClipboardModel::copyText(const QString& text) {
  PasteboardContents contents{
      .filePaths = {}, .picture = {}, .text = std::string(trimmedOfWhitespace(text.toStdString()))};
  auto clip =
      captured(std::move(contents), {},
               {.id = UUID::random(), .now = seams_.now(), .sourceBundleID = std::string(ownBundleID)}, folding_);
  if (!clip) return;
  const ClipItem own = clip->item;
  if (isLoaded_ && !isReadOnly_) add(std::move(*clip), history_.lastChangeCount());
  const ClipItem* kept = library().itemLike(own);
  write(representations(own, std::nullopt), kept ? std::optional(kept->id) : std::nullopt, Purpose::copy);
  if (kept) setFocusedItem(toQString(kept->id.text()));
}

std::optional<QString> ClipboardModel::copyPinned(int number) {
  const ClipItem* item = history_.pinnedItem(number);
  if (!item) return std::nullopt;
  copy(*item);
  return index_.of(*item).isSensitive ? tr("Secret") : toQString(clipName(*item));
}

void ClipboardModel::apply(const HistoryEffects& effects) {
  if (effects.needsSave) storage_.save(effects.changes);
  if (!effects.unusedImages.empty()) storage_.removePictures(effects.unusedImages);
  if (effects.needsSave || !effects.unusedImages.empty()) {
    forgetUnneeded();
    if (!publishChanges(effects.changes)) publish();
  }
}

void ClipboardModel::forgetUnneeded() {
  constexpr std::size_t leftovers = 64;
  if (index_.size() < library().items.size() + history_.undoableCount() + leftovers) return;
  index_.retain(library().items, history_.undoableItems());
}

void ClipboardModel::remove(std::span<const UUID> ids) {
  if (std::erase_if(lost_, [&](const ClipRow& row) { return std::ranges::find(ids, row.id) != ids.end(); }) > 0)
    publishRows();
  if (isReadOnly_) return;
  const int before = count();
  const HistoryEffects effects = history_.remove(ids, /*undoable=*/true);
  if (!effects.needsSave) return;
  if (!itemOf(focusedItem_)) setFocusedItem({});
  apply(effects);
  Q_EMIT undoableCountChanged();
  Q_EMIT removed(before - count());
  endUndoLater();
}

void ClipboardModel::endUndoLater() {
  seams_.later(undoWindow, [self = QPointer(this), generation = ++undoGeneration_] {
    if (!self || generation != self->undoGeneration_) return;
    self->apply(self->history_.endUndo());
    Q_EMIT self->undoableCountChanged();
  });
}

void ClipboardModel::undoRemove() {
  if (isReadOnly_) return;
  const HistoryEffects effects = history_.undoRemove();
  if (!effects.needsSave) return;
  ++undoGeneration_;
  apply(effects);
  Q_EMIT undoableCountChanged();
}

void ClipboardModel::clearHistory() {
  if (isReadOnly_) return;
  lost_.clear();
  apply(history_.clear());
  if (!itemOf(focusedItem_)) setFocusedItem({});
}

void ClipboardModel::setFilter(const QString& filter) {
  const auto wanted = ClipFilter::parse(filter.toStdString());
  const auto* collection = wanted ? std::get_if<ClipFilter::Collection>(&wanted->value) : nullptr;
  const bool isKnown = wanted && (!collection || std::ranges::find(library().collections, collection->id,
                                                                   &ClipCollection::id) != library().collections.end());
  if (!isKnown || !replaced(filter_, *wanted)) return;
  Q_EMIT filterChanged();
  publishRows();
}

void ClipboardModel::setQuery(const QString& query) {
  if (!replaced(query_, query)) return;
  Q_EMIT queryChanged();
  publishRows();
}

void ClipboardModel::setFocusedItem(const QString& id) {
  if (replaced(focusedItem_, id)) Q_EMIT focusedItemChanged();
}

void ClipboardModel::publish() {
  std::vector<CollectionRow> collections;
  for (const ClipCollection& one : library().collections)
    collections.push_back({.id = toQString(one.id.text()), .name = toQString(one.name)});
  collections_.setRows(collections);
  items_.setNow(seams_.now());
  publishRows();
  Q_EMIT libraryChanged();
}

void ClipboardModel::publishFace() {
  const ClipboardView view{.isOn = settings_.clipboardEnabled(),
                           .isReadOnly = isReadOnly_,
                           .filter = filter_,
                           .isSearching = !query_.trimmed().isEmpty()};
  if (replaced(face_, clipboardFace(library(), index_, view, seams_.now(), calendar_))) Q_EMIT faceChanged();
}

void ClipboardModel::refreshAges() {
  items_.setNow(seams_.now());
  publishFace();
}

void ClipboardModel::refresh() {
  files_.expire();
  refreshAges();
}

ClipRow ClipboardModel::rowOf(const ClipItem& item) {
  return {.id = item.id,
          .kind = item.kind,
          .createdAt = item.createdAt,
          .imageFileName = item.imageFileName.value_or(""),
          .program = programName(item.sourceBundleID.value_or("")),
          .hasTextBeside = item.kind == ClipKind::image && item.text.has_value(),
          .isPinned = item.isPinned,
          .isKept = item.isProtected(),
          .isCurrent = item.id == history_.currentItemID()};
}

// The cost of a copy does not depend on the number of rows. False if all rows have to be compared.
bool ClipboardModel::publishChanges(std::span<const LibraryChange> changes) {
  const bool showsAll = filter_ == ClipFilter{} && query_.trimmed().isEmpty() && lost_.empty();
  const auto* put = changes.empty() ? nullptr : std::get_if<LibraryChange::Put>(&changes.front().value);
  // The numbers of the pins follow their order.
  if (!showsAll || !put || put->item.isPinned) return false;
  items_.put(rowOf(put->item));
  for (const LibraryChange& change : changes)
    if (const auto* drop = std::get_if<LibraryChange::Drop>(&change.value)) items_.drop(drop->ids);
  items_.setCurrent(history_.currentItemID());
  refreshAges();
  Q_EMIT visibleItemsChanged();
  Q_EMIT libraryChanged();
  return true;
}

void ClipboardModel::publishRows() {
  constexpr int mostPinNumbers = 9;
  std::unordered_map<UUID, int> pinNumbers;
  for (int number = 1; number <= mostPinNumbers; ++number)
    if (const ClipItem* item = history_.pinnedItem(number)) pinNumbers.emplace(item->id, number);
  std::vector<ClipRow> rows;
  const bool showsLost = filter_ == ClipFilter{} && query_.trimmed().isEmpty();
  auto lost = showsLost ? lost_.begin() : lost_.end();
  for (const std::size_t position : index_.matches(library().items, filter_, query_.toStdString())) {
    const ClipItem& item = library().items[position];
    while (lost != lost_.end() && lost->createdAt >= item.createdAt) rows.push_back(*lost++);
    rows.push_back(rowOf(item));
    if (const auto number = pinNumbers.find(item.id); number != pinNumbers.end())
      rows.back().pinNumber = number->second;
  }
  rows.insert(rows.end(), lost, lost_.end());
  items_.show(rows);
  publishFace();
  Q_EMIT visibleItemsChanged();
}

}  // namespace ambrel
