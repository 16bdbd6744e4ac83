#pragma once
// The clipboard history: notices copies, keeps them, and puts them back.

#include <QObject>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "app/base/Background.h"
#include "app/base/Face.h"
#include "app/base/Presentation.h"
#include "app/clipboard/ClipCapture.h"
#include "app/clipboard/ClipFileLookup.h"
#include "app/clipboard/ClipListModel.h"
#include "app/clipboard/ClipboardFace.h"
#include "app/clipboard/ClipboardStorage.h"
#include "core/base/Calendar.h"
#include "core/clipboard/ClipIndex.h"
#include "core/clipboard/ClipboardHistory.h"
#include "platform/Pasteboard.h"
#include "platform/Workspace.h"

namespace ambrel {

class AppSettings;

struct CollectionRow {
  Q_GADGET
  Q_PROPERTY(QString collectionId MEMBER id FINAL)
 public:
  QString id{};
  FACE_FIELDS(QString, name);
  friend bool operator==(const CollectionRow&, const CollectionRow&) = default;
};

// Slow work runs off the main thread. QML passes items and collections by the text of their ids, and a filter as
// ClipFilter::text; unknown ids are ignored.
class ClipboardModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // The clips that match the filter and the search.
  Q_PROPERTY(ambrel::ClipListModel* items READ items CONSTANT FINAL)
  Q_PROPERTY(int visibleCount READ visibleCount NOTIFY visibleItemsChanged FINAL)
  Q_PROPERTY(ambrel::RowList* collections READ collections CONSTANT FINAL)
  Q_PROPERTY(ambrel::ClipboardFace face READ face NOTIFY faceChanged FINAL)
  Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY filterChanged FINAL)
  Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged FINAL)
  // The clip with the keyboard focus; empty for none.
  Q_PROPERTY(QString focusedItem READ focusedItem WRITE setFocusedItem NOTIFY focusedItemChanged FINAL)
  // The programs of recent copies, newest first: {id, name}. Without ignored ones.
  Q_PROPERTY(QVariantList recentPrograms READ recentPrograms NOTIFY libraryChanged FINAL)

 public:
  struct Seams {
    Pasteboard& pasteboard;
    Workspace& workspace;
    Background background;
    // For file system calls that may never return.
    Background fileBackground;
    DelayedStep later;
    std::function<Instant()> now;
  };
  static constexpr Seconds undoWindow{6};
  static constexpr const char* ownBundleID = "dev.qorvin.ambrel";

  // The present contents of the pasteboard are not recorded.
  ClipboardModel(AppSettings& settings, std::filesystem::path folder, Calendar calendar, Seams seams,
                 QObject* parent = nullptr);
  ~ClipboardModel() override;

  // Loads the library and then starts to watch. Until then nothing is recorded or changed.
  void start();
  // One tick: removes expired clips when it is time, and reads a new copy.
  void poll();

  const ClipboardLibrary& library() const { return history_.library(); }
  const std::optional<UUID>& currentItemID() const { return history_.currentItemID(); }
  const ClipItem* item(const UUID& id) const { return history_.item(id); }
  std::filesystem::path picturesFolder() const { return storage_.picturesFolder(); }

  // Writes the item to the pasteboard; the history keeps its order. A picture is read first.
  void copy(const ClipItem& item);
  // The text on the pasteboard: of the current clip, or, where the history does not follow it, read from its owner.
  // Without one, and of what is private or of an ignored program, an empty text. `done` may be called at once.
  void readText(std::function<void(std::string text)> done);
  // Puts it on the pasteboard past the history.
  void writeUnrecorded(std::vector<Representation> representations);
  // Copies a pinned clip by its number, 1 to 9, and gives its name; absent if there is none.
  std::optional<QString> copyPinned(int number);

  QString filter() const { return QString::fromStdString(filter_.text()); }
  void setFilter(const QString& filter);
  const QString& query() const { return query_; }
  void setQuery(const QString& query);
  const QString& focusedItem() const { return focusedItem_; }
  void setFocusedItem(const QString& id);

  ClipListModel* items() { return &items_; }
  GadgetListModel<CollectionRow>* collections() { return &collections_; }
  const ClipboardFace& face() const { return face_; }
  ClipboardFace sampleFace() const { return sampleClipboardFace(seams_.now(), calendar_); }
  int visibleCount() const { return items_.rowCount(); }
  int count() const { return static_cast<int>(library().items.size()); }
  // Whether items or a collection can still come back.
  bool canUndo() const { return history_.undoableCount() > 0 || history_.canUndoCollection(); }
  QVariantList recentPrograms();

  // For the shelf.
  Q_INVOKABLE void togglePin(const QString& id);
  Q_INVOKABLE void toggleCollection(const QString& item, const QString& collection);
  Q_INVOKABLE QString collectionName(const QString& id) const;
  Q_INVOKABLE bool isIn(const QString& item, const QString& collection) const;
  // Puts an item, if one is named, into the new collection.
  Q_INVOKABLE void createCollection(const QString& name, const QString& item);
  Q_INVOKABLE void renameCollection(const QString& id, const QString& name);
  Q_INVOKABLE void deleteCollection(const QString& id);
  Q_INVOKABLE void remove(const QString& id);
  Q_INVOKABLE void undoRemove();
  // Everything that is not protected, for good.
  Q_INVOKABLE void clearHistory();
  // The cleanups that would remove something: {key, title, count} as texts.
  Q_INVOKABLE QVariantList cleanups() const;
  Q_INVOKABLE void cleanUp(const QString& key);
  // The display name of a program by its stored identifier.
  Q_INVOKABLE QString nameOfProgram(const QString& id) { return programName(id.toStdString()); }
  // Copies the text of the clip, including the text that came with a picture.
  Q_INVOKABLE void copyAsText(const QString& id);
  // Records a text and puts it on the pasteboard. White space at both ends goes.
  Q_INVOKABLE void copyText(const QString& text);
  // The beginning of its text, for the preview.
  Q_INVOKABLE QString textOf(const QString& id) const;
  // Updates the ages and looks at files again.
  void refresh();

 Q_SIGNALS:
  void libraryChanged();
  void faceChanged();
  // Something else is on the pasteboard, and what is to be read of it has been read.
  void pasteboardChanged();
  void visibleItemsChanged();
  void filterChanged();
  void queryChanged();
  void focusedItemChanged();
  void undoableCountChanged();
  // So many items were removed; undoRemove brings them back for a while.
  void removed(int count);
  // The same for a collection.
  void collectionDeleted(const QString& name);
  // A problem to show once: the history cannot be saved, or belongs to another bar.
  void troubled(const QString& title, const QString& detail);

 private:
  void begin(ClipboardStorage::Loaded loaded);
  void read(ClipOrigin origin);
  void add(CapturedClip clip, std::int64_t changeCount);
  void remove(std::span<const UUID> ids);
  void addLost(const LostCopy& lost, const ClipOrigin& origin);
  bool isIgnored(const std::string& bundleID, const std::vector<std::string>& ignored);
  void tryToTakeOver();
  void endUndoLater();
  void restoreCurrent();
  void publishCurrent();
  // Restoring gives way to another application's copy.
  enum class Purpose { copy, restore };
  void put(const ClipItem& item, Purpose purpose);
  void write(std::vector<Representation> representations, std::optional<UUID> id, Purpose purpose);
  void apply(const HistoryEffects& effects);
  void publish();
  void publishRows();
  bool publishChanges(std::span<const LibraryChange> changes);
  ClipRow rowOf(const ClipItem& item);
  CaptureSettings captureSettings() const;
  CaptureLimits captureLimits() const;
  QString programName(const std::string& bundleID);
  const ClipItem* itemOf(const QString& id) const;
  void forgetUnneeded();
  void refreshAges();
  void publishFace();

  AppSettings& settings_;
  Calendar calendar_;
  Seams seams_;
  SearchFolding folding_;
  // Declared before the storage, which saves it in its destructor.
  ClipboardHistory history_;
  ClipboardStorage storage_;
  ClipCapture capture_;
  ClipIndex index_;
  ClipFileLookup files_;
  ClipListModel items_;
  GadgetListModel<CollectionRow> collections_;
  ClipboardFace face_;
  ClipFilter filter_;
  QString query_;
  QString focusedItem_;
  std::unordered_map<std::string, QString> programNames_;
  std::int64_t lastMinute_ = 0;
  bool isLoaded_ = false;
  bool isReadOnly_ = false;  // another bar keeps the history
  // Copies that could not be taken over, newest first; until the program ends.
  std::vector<ClipRow> lost_;
  // The change whose owner quit before its contents became a clip.
  std::optional<std::int64_t> ownerlessChange_;
  std::int64_t firstChange_;  // what was there at the start, which nobody reads for the history
  int undoGeneration_ = 0;
  int writeGeneration_ = 0;
};

}  // namespace ambrel
