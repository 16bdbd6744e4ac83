#pragma once
// A picture of the screen, or of a part of it, to save or to copy. It is gone once its panel is closed.

#include <QImage>
#include <QObject>
#include <QRectF>
#include <QtQml/qqmlregistration.h>
#include <functional>

#include "app/base/Area.h"
#include "app/base/Background.h"
#include "app/base/Face.h"
#include "app/base/Presentation.h"
#include "core/base/PresentCalendar.h"
#include "core/clipboard/Capture.h"
#include "platform/ScreenCapture.h"

namespace ambrel {

struct ScreenshotFace {
  Q_GADGET
  QML_VALUE_TYPE(screenshotFace)
 public:
  FACE_FIELDS(QRectF, box);        // what is chosen, as fractions of the picture
  FACE_FIELDS(QString, sizeText);  // of what is chosen: "1264 × 928"
  FACE_FIELDS(bool, hasPicture, isWhole, hasWindows, isWaiting, isSaving);
  bool operator==(const ScreenshotFace&) const = default;
};

class ScreenshotModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::ScreenshotFace face READ face NOTIFY faceChanged FINAL)
  Q_PROPERTY(QImage picture READ picture NOTIFY pictureChanged FINAL)

 public:
  static constexpr Seconds delay{5};

  struct Seams {
    ScreenCapture& screen;
    Background background;
    std::function<Instant()> now;
    PresentCalendar calendar;
    DelayedStep later;
    std::function<QString()> folder;  // that pictures are saved in; made when it is not there
    std::function<void(std::vector<Representation>)> copy;
  };
  // What the seams refer to and the shell outlive it.
  ScreenshotModel(Seams seams, Shell& shell, QObject* parent = nullptr);

  const ScreenshotFace& face() const { return face_; }
  const QImage& picture() const { return picture_; }

  Q_INVOKABLE void take();
  // In some seconds, in which a menu can be opened.
  Q_INVOKABLE void takeLater();
  // An area; all of the picture when it is as good as none.
  Q_INVOKABLE void choose(QRectF box);
  // The topmost window at this place, else all.
  Q_INVOKABLE void chooseWindowAt(QPointF place);
  // The windows in turn, from the top.
  Q_INVOKABLE void chooseNextWindow();
  Q_INVOKABLE void chooseAll() { choose({}); }
  Q_INVOKABLE void save();
  Q_INVOKABLE void copy();
  Q_INVOKABLE void drop();

 Q_SIGNALS:
  void faceChanged();
  void pictureChanged();
  // There is something new to see.
  void taken();

 private:
  void capture();
  QImage chosen() const;
  // `use` gets the chosen part off the main thread, and then `done` is called on it.
  void pack(std::function<void(const QByteArray& png)> use, std::function<void()> done);
  void publish();

  Seams seams_;
  Shell& shell_;
  QImage picture_;
  std::vector<QRectF> windows_;
  QRectF box_;
  std::size_t nextWindow_ = 0;
  bool isWaiting_ = false, isSaving_ = false;
  int turn_ = 0;  // what comes late for an earlier picture is dropped
  ScreenshotFace face_;
};

}  // namespace ambrel
