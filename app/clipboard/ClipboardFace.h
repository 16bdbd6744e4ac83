#pragma once
// What the tile and the shelf say of the history as a whole.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "core/base/Calendar.h"
#include "core/clipboard/ClipIndex.h"

namespace ambrel {

struct ClipboardFace {
  Q_GADGET
  QML_VALUE_TYPE(clipboardFace)
  Q_PROPERTY(bool isEmpty MEMBER isEmpty FINAL)
  Q_PROPERTY(bool isInUse MEMBER isInUse FINAL)
  Q_PROPERTY(QString value MEMBER value FINAL)
  Q_PROPERTY(QString unit MEMBER unit FINAL)
  Q_PROPERTY(QString line MEMBER line FINAL)
  Q_PROPERTY(QString shortLine MEMBER shortLine FINAL)
  Q_PROPERTY(QString latestText MEMBER latestText FINAL)
  Q_PROPERTY(QString latestAge MEMBER latestAge FINAL)
  Q_PROPERTY(QString summary MEMBER summary FINAL)
  Q_PROPERTY(QString emptyTitle MEMBER emptyTitle FINAL)
  Q_PROPERTY(QString emptySentence MEMBER emptySentence FINAL)

 public:
  bool isEmpty = true;
  bool isInUse = false;     // it is on and has something
  QString value, unit;      // "9,901", "clips"; "Off"
  QString line, shortLine;  // "Last copy 2 min. ago", "2 min. ago"
  QString latestText;       // the newest clip in a few words, a secret by its kind alone
  QString latestAge;        // "2 min"
  QString summary;          // "128 items · 3 pinned"
  QString emptyTitle;       // why there is nothing to show,
  QString emptySentence;    // and what would change that
  friend bool operator==(const ClipboardFace&, const ClipboardFace&) = default;
};

struct ClipboardView {
  bool isOn = true;
  bool isReadOnly = false;  // another bar keeps the history
  ClipFilter filter;
  bool isSearching = false;
};

ClipboardFace clipboardFace(const ClipboardLibrary& library, const ClipIndex& index, const ClipboardView& view,
                            Instant now, const Calendar& calendar);

}  // namespace ambrel
