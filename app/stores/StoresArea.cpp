#include "app/stores/StoresArea.h"

#include <QMimeData>
#include <QStandardPaths>

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/kit/DialogPalette.h"
#include "app/kit/Theme.h"
#include "app/window/FileDialog.h"
#include "app/window/ItemDrag.h"

namespace ambrel {
namespace {

FolderModel::Seams folderSeams(const StoresArea::Seams& seams, FolderWatch& watch) {
  return {.watch = watch,
          .background = seams.fileBackground,
          .calendar = seams.calendar,
          .now = seams.now,
          .open = seams.open,
          .showInFolder = seams.showInFolder};
}

}  // namespace

StoresArea::StoresArea(const Seams& seams, Shell& shell, QObject* parent)
    : Area(QStringLiteral("Stores"), parent),
      engine_(seams.engine),
      calendar_(seams.calendar),
      downloadsFolder_(seams.downloads),
      note_(seams.documents / "QuickNote.txt", shell),
      todos_(ListKind::todos, seams.documents / "todos.json", tr("The to-do list"), shell),
      snippets_(ListKind::snippets, seams.documents / "snippets.json", tr("The list of snippets"), shell),
      bookmarks_(seams.documents / "bookmarks.json", seams.documents / "Favicons", seams.fetcher, seams.background,
                 seams.open, shell),
      chosenFolder_(seams.defaults, folderSeams(seams, seams.folderWatch), shell),
      downloads_(folderSeams(seams, seams.downloadsWatch), Unfinished::listed, shell),
      shortcut_({.defaults = seams.defaults,
                 .launcher = seams.launcher,
                 .picture = seams.picture,
                 .folding = SearchFolding::forLocale(seams.calendar().locale())},
                shell),
      tally_(seams.defaults, seams.calendar) {
  keep({this, &note_, &todos_, &snippets_, &bookmarks_, &chosenFolder_, &downloads_, &shortcut_, &tally_});
}

void StoresArea::widgetsChanged(const std::set<DockWidget>& onBar, bool areSeen, Instant /*now*/) {
  if (onBar.contains(DockWidget::quickNote)) note_.open();
  if (onBar.contains(DockWidget::todo)) todos_.open();
  if (onBar.contains(DockWidget::snippets)) snippets_.open();
  if (onBar.contains(DockWidget::bookmarks)) bookmarks_.open();
  if (onBar.contains(DockWidget::shortcuts)) shortcut_.reload();
  chosenFolder_.setShown(areSeen && onBar.contains(DockWidget::folder));
  const bool showsDownloads = areSeen && onBar.contains(DockWidget::downloads);
  // The user can move it at any time.
  if (showsDownloads) downloads_.setPath(downloadsFolder_());
  downloads_.setShown(showsDownloads);
}

QVariantMap StoresArea::sample(DockWidget widget) {
  if (widget != DockWidget::downloads) return {};
  FolderFace face;
  face.isChosen = true;
  face.newest = tr("report.pdf");
  face.newestDetail = tr("1.2 MB, today");
  return {{QStringLiteral("face"), QVariant::fromValue(face)}};
}

void StoresArea::defaultsChanged(const std::set<std::string>& keys) {
  chosenFolder_.reload();
  tally_.reload();
  // This one looks for the program.
  if (keys.contains(ShortcutModel::chosenKey) || keys.contains(ShortcutModel::scriptsKey)) shortcut_.reload();
}

void StoresArea::tick(Instant now) {
  // Today's files are shown with their time.
  if (replaced(day_, calendar_().dayKey(now))) zoneChanged(now);
}

void StoresArea::zoneChanged(Instant /*now*/) {
  chosenFolder_.publish();
  downloads_.publish();
}

void StoresArea::askForFolder() {
  const QString start = chosenFolder_.face().isChosen ? chosenFolder_.face().path
                                                      : QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
  chooseFolder(nullptr, tr("Choose a folder for the tile."), start, dialogPalette(themeOf(engine_).palette()),
               chosenFolder_.chooser());
}

void StoresArea::askForScript() {
  chooseFile(nullptr, tr("Choose a script or a program."),
             QStandardPaths::writableLocation(QStandardPaths::HomeLocation), dialogPalette(themeOf(engine_).palette()),
             shortcut_.scriptChooser());
}

void StoresArea::dragOut(FolderModel* folder, const QString& rowId, QQuickItem* row) {
  const FolderRow* found = folder->row(rowId);
  if (!found || found->isLoading) return;
  const auto data = [url = found->url] {
    auto all = std::make_unique<QMimeData>();
    all->setUrls({url});
    return all;
  };
  dragItem(row, themeOf(engine_).panel(), data, [](bool) {});
}

}  // namespace ambrel
