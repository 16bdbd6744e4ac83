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

// Saving and whatever is slow happen off the main thread. For QML, items and collections are the texts of their ids,
// a filter is "all", "pinned", "kind:KIND" or "collection:ID"; an id that is none changes nothing.
class ClipboardModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  // What the filter and the search admit.
  Q_PROPERTY(ambrel::ClipListModel* items READ items CONSTANT FINAL)
  Q_PROPERTY(int visibleCount READ visibleCount NOTIFY visibleItemsChanged FINAL)
  Q_PROPERTY(ambrel::RowList* collections READ collections CONSTANT FINAL)
  Q_PROPERTY(ambrel::ClipboardFace face READ face NOTIFY faceChanged FINAL)
  Q_PROPERTY(QString filter READ filterText WRITE setFilterText NOTIFY filterChanged FINAL)
  Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY queryChanged FINAL)
  Q_PROPERTY(QString focusedItem READ focusedItemText WRITE setFocusedItemText NOTIFY focusedItemIDChanged FINAL)
  // Where copies came from lately, newest first: {id, name}. None that is ignored.
  Q_PROPERTY(QVariantList recentPrograms READ recentPrograms NOTIFY libraryChanged FINAL)

 public:
  struct Seams {
    Pasteboard& pasteboard;
    Workspace& workspace;
    Background background;
    // For looking at files that may be on a disk that never answers.
    Background fileBackground;
    DelayedStep later;
    std::function<Instant()> now;
  };
  static constexpr Seconds pollInterval{0.5};
  static constexpr Seconds undoWindow{6};
  static constexpr const char* ownBundleID = "dev.qorvin.ambrel";

  // What is on the pasteboard by then is not recorded.
  ClipboardModel(AppSettings& settings, std::filesystem::path folder, Calendar calendar, Seams seams,
                 QObject* parent = nullptr);
  ~ClipboardModel() override;

  // Loads the library and then begins to watch. Until it is there, nothing is recorded or changed.
  void start();
  // One tick: sweeps when it is time, and reads a copy that is new.
  void poll();

  const ClipboardLibrary& library() const { return history_.library(); }
  const std::optional<UUID>& currentItemID() const { return history_.currentItemID(); }
  std::int64_t lastChangeCount() const { return history_.lastChangeCount(); }
  const ClipItem* item(const UUID& id) const { return history_.item(id); }
  std::filesystem::path picturesFolder() const { return storage_.picturesFolder(); }

  // Writes the item to the pasteboard; the history keeps its order. A picture is read first.
  void copy(const ClipItem& item);
  // Records a text, or the colour as "#2F7F86", and writes it. White space at both ends goes.
  void copyText(std::string_view text);
  // The name of what was copied; absent when there is no such pinned clip. 1 to 9.
  std::optional<QString> copyPinned(int number);

  void remove(std::span<const UUID> ids, bool undoable);
  void undoRemove();
  // Everything that is not protected, for good.
  void clearHistory();

  const ClipFilter& filter() const { return filter_; }
  void setFilter(const ClipFilter& filter);
  const QString& query() const { return query_; }
  void setQuery(const QString& query);
  const std::optional<UUID>& focusedItemID() const { return focusedItemID_; }
  void setFocusedItemID(std::optional<UUID> id);

  ClipListModel* items() { return &items_; }
  GadgetListModel<CollectionRow>* collections() { return &collections_; }
  const ClipboardFace& face() const { return face_; }
  QString filterText() const;
  void setFilterText(const QString& text);
  QString focusedItemText() const;
  void setFocusedItemText(const QString& id);
  // Whether items or a collection can still come back.
  int visibleCount() const { return items_.rowCount(); }
  int count() const { return static_cast<int>(library().items.size()); }
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
  // What a cleanup could take, each with {key, title, count} as texts; only those that would take something.
  Q_INVOKABLE QVariantList cleanups() const;
  Q_INVOKABLE void cleanUp(const QString& key);
  Q_INVOKABLE void clear() { clearHistory(); }
  Q_INVOKABLE void undo() { undoRemove(); }
  // The name of a program by what is stored of it.
  Q_INVOKABLE QString nameOfProgram(const QString& id) { return programName(id.toStdString()); }
  // Puts the text of the clip on the pasteboard, also that beside a picture.
  Q_INVOKABLE void copyAsText(const QString& id);
  // Records a part of a clip and puts it on the pasteboard.
  Q_INVOKABLE void copyPart(const QString& text) { copyText(text.toStdString()); }
  // The beginning of its text, as much as a preview can show.
  Q_INVOKABLE QString textOf(const QString& id) const;
  // Brings the ages up to date, and what is known of files.
  void refresh();

 Q_SIGNALS:
  void libraryChanged();
  void faceChanged();
  void visibleItemsChanged();
  void currentItemIDChanged();
  void filterChanged();
  void queryChanged();
  void focusedItemIDChanged();
  void undoableCountChanged();
  // So many items went, and can come back for a while.
  void removed(int count);
  // The same for a collection.
  void collectionDeleted(const QString& name);
  // Something that the user has to know, once: the history is not saved, or not this bar's.
  void troubled(const QString& title, const QString& detail);

 private:
  void begin(ClipboardStorage::Loaded loaded);
  void read(ClipOrigin origin);
  void add(CapturedClip clip);
  void addLost(const LostCopy& lost, const ClipOrigin& origin);
  bool isIgnored(const std::string& bundleID, const std::vector<std::string>& ignored);
  void tryToTakeOver();
  void endUndoLater();
  void restoreCurrent();
  // What is restored yields to what another application has copied.
  enum class Purpose { copy, restore };
  void put(const ClipItem& item, Purpose purpose);
  void write(std::vector<Representation> representations, std::optional<UUID> id, Purpose purpose);
  void apply(const HistoryEffects& effects);
  void publish();
  void publishRows();
  void publishCurrent();
  bool publishChanges(std::span<const LibraryChange> changes);
  ClipRow rowOf(const ClipItem& item);
  CaptureSettings captureSettings() const;
  QString programName(const std::string& bundleID);
  const ClipItem* itemOf(const QString& id) const;
  void forgetUnneeded();
  void refreshAges();
  void publishFace();

  AppSettings& settings_;
  Calendar calendar_;
  Seams seams_;
  SearchFolding folding_;
  // Goes after the storage, which saves it once more at the end.
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
  std::optional<UUID> focusedItemID_;
  std::unordered_map<std::string, QString> programNames_;
  std::int64_t lastMinute_ = 0;
  bool isLoaded_ = false;
  bool isReadOnly_ = false;  // another bar keeps the history
  // Copies that could not be taken over, newest first; until the program ends.
  std::vector<ClipRow> lost_;
  // The change whose owner quit before its contents became a clip.
  std::optional<std::int64_t> ownerlessChange_;
  int undoGeneration_ = 0;
  int writeGeneration_ = 0;
};

}  // namespace ambrel
