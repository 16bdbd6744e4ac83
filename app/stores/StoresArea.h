#pragma once
// The user's own things: a note, to-dos, snippets, bookmarks, a folder, a shortcut, a count.

#include "app/base/Area.h"
#include "app/stores/BookmarkList.h"
#include "app/stores/FolderModel.h"
#include "app/stores/QuickNote.h"
#include "app/stores/ShortcutModel.h"
#include "app/stores/TallyCounter.h"

class QQmlEngine;
class QQuickItem;

namespace ambrel {

// A document is read and followed from the time on at which its tile is on the bar.
class StoresArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::QuickNote* note READ note CONSTANT FINAL)
  Q_PROPERTY(ambrel::EditedList* todos READ todos CONSTANT FINAL)
  Q_PROPERTY(ambrel::EditedList* snippets READ snippets CONSTANT FINAL)
  Q_PROPERTY(ambrel::BookmarkList* bookmarks READ bookmarks CONSTANT FINAL)
  Q_PROPERTY(ambrel::ChosenFolder* chosenFolder READ chosenFolder CONSTANT FINAL)
  Q_PROPERTY(ambrel::FolderModel* downloads READ downloads CONSTANT FINAL)
  Q_PROPERTY(ambrel::ShortcutModel* shortcut READ shortcut CONSTANT FINAL)
  Q_PROPERTY(ambrel::TallyCounter* tally READ tally CONSTANT FINAL)

 public:
  struct Seams {
    QQmlEngine& engine;
    std::filesystem::path documents;  // the folder that holds them
    UserDefaults& defaults;
    FolderWatch& folderWatch;
    FolderWatch& downloadsWatch;
    Fetcher& fetcher;
    Launcher& launcher;
    Background background, fileBackground;
    PresentCalendar calendar;
    std::function<Instant()> now;
    std::function<bool(const QUrl&)> open;  // in the program that is for it; false when there is none
    std::function<void(const QUrl&)> showInFolder;
    std::function<std::string()> downloads;  // the folder that browsers put files into
    ShortcutModel::Picture picture;
  };
  // All outlive it.
  StoresArea(const Seams& seams, Shell& shell, QObject* parent = nullptr);

  QuickNote* note() { return &note_; }
  EditedList* todos() { return &todos_; }
  EditedList* snippets() { return &snippets_; }
  BookmarkList* bookmarks() { return &bookmarks_; }
  ChosenFolder* chosenFolder() { return &chosenFolder_; }
  FolderModel* downloads() { return &downloads_; }
  ShortcutModel* shortcut() { return &shortcut_; }
  TallyCounter* tally() { return &tally_; }

  Q_INVOKABLE void askForFolder();
  Q_INVOKABLE void askForScript();
  // Starts to drag an item of a folder; `row` is the drag's picture.
  Q_INVOKABLE void dragOut(ambrel::FolderModel* folder, const QString& rowId, QQuickItem* row);

  QVariantMap sample(DockWidget widget) override;
  void widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant now) override;
  void tick(Instant now) override;
  void defaultsChanged(const std::set<std::string>& keys) override;
  void zoneChanged(Instant /*now*/) override;

 private:
  QQmlEngine& engine_;
  PresentCalendar calendar_;
  std::string day_;  // of the last tick
  std::function<std::string()> downloadsFolder_;
  QuickNote note_;
  EditedList todos_, snippets_;
  BookmarkList bookmarks_;
  ChosenFolder chosenFolder_;
  FolderModel downloads_;
  ShortcutModel shortcut_;
  TallyCounter tally_;
};

}  // namespace ambrel
