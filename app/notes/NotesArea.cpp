#include "app/notes/NotesArea.h"

#include <QStandardPaths>

#include "app/base/QmlObjects.h"
#include "app/kit/DialogPalette.h"
#include "app/kit/Theme.h"
#include "app/window/FileDialog.h"

namespace ambrel {

NotesArea::NotesArea(QQmlEngine& engine, WindowStyle& style, ScreenNotesModel::Seams seams,
                     ScreenshotModel::Seams screenshotSeams, Shell& shell, QObject* parent)
    : Area(QStringLiteral("Notes"), parent),
      engine_(engine),
      notes_(std::move(seams), shell),
      screenshot_(std::move(screenshotSeams), shell),
      window_(engine, style,
              {.title = tr("Screen Notes"),
               .size = {1120, 720},
               .smallest = {820, 520},
               .source = QUrl(QStringLiteral("qrc:/qt/qml/Ambrel/Notes/ScreenNotesView.qml")),
               .properties = {{QStringLiteral("notes"), toVariant(notes_)}}}) {
  keep({this, &notes_, &screenshot_});
  connect(&notes_, &ScreenNotesModel::captured, &window_, &ViewWindow::open);
  connect(&notes_, &ScreenNotesModel::closed, &window_, &ViewWindow::close);
  connect(&notes_, &ScreenNotesModel::folderAsked, this, &NotesArea::chooseFolder);
  connect(&window_, &ViewWindow::closeAsked, &notes_, &ScreenNotesModel::askToClose);
}

bool NotesArea::carryOut(const Wish& wish) {
  if (!std::holds_alternative<wish::CaptureNotes>(wish)) return false;
  Q_EMIT captureAsked();
  return true;
}

std::vector<AreaKey> NotesArea::keys() {
  return {{&setting::notesKeys, [this] { Q_EMIT captureAsked(); }, "--capture-notes"}};
}

void NotesArea::chooseFolder(ScreenNotesModel::Exporter exporter) {
  const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
  ambrel::chooseFolder(
      window_.window(), tr("Choose a folder for the review."), pictures, dialogPalette(themeOf(engine_).palette()),
      [this, exporter](const std::string& folder) { notes_.exportTo(QString::fromStdString(folder), exporter); });
}

}  // namespace ambrel
