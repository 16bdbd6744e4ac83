#pragma once
// Screen Notes: the review, its window, and what brings it up.

#include <QQmlEngine>

#include "app/base/Area.h"
#include "app/notes/ScreenNotesModel.h"
#include "app/notes/ScreenshotModel.h"
#include "app/window/ViewWindow.h"

namespace ambrel {

class NotesArea : public Area {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::ScreenNotesModel* notes READ notes CONSTANT FINAL)
  Q_PROPERTY(ambrel::ScreenshotModel* screenshot READ screenshot CONSTANT FINAL)

 public:
  // Engine, style and shell outlive it.
  NotesArea(QQmlEngine& engine, WindowStyle& style, ScreenNotesModel::Seams seams,
            ScreenshotModel::Seams screenshotSeams, Shell& shell, QObject* parent = nullptr);

  ScreenNotesModel* notes() { return &notes_; }
  ScreenshotModel* screenshot() { return &screenshot_; }
  ViewWindow& window() { return window_; }
  // For the tile: as the key does.
  Q_INVOKABLE void ask() { Q_EMIT captureAsked(); }
  bool carryOut(const Wish& wish) override;
  std::vector<AreaKey> keys() override;

 Q_SIGNALS:
  // The user wants a capture, if the licence allows it.
  void captureAsked();

 private:
  void chooseFolder(ScreenNotesModel::Exporter exporter);

  QQmlEngine& engine_;
  ScreenNotesModel notes_;
  ScreenshotModel screenshot_;
  ViewWindow window_;
};

}  // namespace ambrel
