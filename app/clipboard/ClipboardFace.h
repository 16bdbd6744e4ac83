#pragma once
// What the tile and the shelf show of the history as a whole.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "core/base/Calendar.h"
#include "core/clipboard/ClipIndex.h"

namespace ambrel {

struct ClipboardFace {
  Q_GADGET
  QML_VALUE_TYPE(clipboardFace)
 public:
  FACE_FIELD(bool, isEmpty, true);
  FACE_FIELDS(bool, isInUse);             // it is on and has something
  FACE_FIELDS(QString, value, unit);      // "9,901", "clips"; "Off"
  FACE_FIELDS(QString, line, shortLine);  // "Last copy 2 min. ago", "2 min. ago"
  FACE_FIELDS(QString, latestText);       // the newest clip in a few words; only the kind of a secret
  FACE_FIELDS(QString, latestAge);        // "2 min"
  FACE_FIELDS(QString, summary);          // "128 items · 3 pinned"
  FACE_FIELDS(QString, emptyTitle);       // why there is nothing to show,
  FACE_FIELDS(QString, emptySentence);    // and what would change that
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
// An example of a history.
ClipboardFace sampleClipboardFace(Instant now, const Calendar& calendar);

}  // namespace ambrel
