#pragma once
// What a card of the shelf shows of a clip.

#include <QColor>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>
#include <optional>
#include <string>

#include "app/base/Face.h"
#include "app/clipboard/ClipFileLookup.h"
#include "core/base/Calendar.h"
#include "core/clipboard/Capture.h"
#include "core/clipboard/ClipIndex.h"

namespace ambrel {

// What can change about a clip, and its identity. ClipFacts has the rest, which never changes.
struct ClipRow {
  UUID id;
  ClipKind kind = ClipKind::text;
  Instant createdAt;
  std::string imageFileName = {};
  QString program = {};  // the program that it was copied from; empty if unknown
  bool hasTextBeside = false;
  bool isPinned = false;
  bool isKept = false;                // no sweep takes it
  bool isCurrent = false;             // on the pasteboard now
  int pinNumber = 0;                  // 0 without one
  std::optional<LostCopy> lost = {};  // not a clip, but a copy that could not be captured
  friend bool operator==(const ClipRow&, const ClipRow&) = default;
};

struct ClipFace {
  Q_GADGET
  QML_VALUE_TYPE(clipFace)
 public:
  FACE_FIELDS(QString, clipId);
  FACE_FIELDS(QString, look);           // the name of a ClipLook; "lost" for what is no clip
  FACE_FIELDS(QString, kindText);       // "Text", "Files"
  FACE_FIELDS(QString, title, detail);  // ClipPreview's
  // For code: markup of the style StyledText. Its colours are names of CodeWord in quotation marks, which occur nowhere
  // else in it.
  FACE_FIELDS(QString, code);
  FACE_FIELD(QColor, swatch, Qt::transparent);
  FACE_FIELDS(QVariantList, files);  // {name, symbol}
  FACE_FIELDS(QString, moreFiles);   // "and 2 more"
  FACE_FIELDS(QString, picture);     // the name of its file
  FACE_FIELDS(QString, foot);        // the source program or the size
  FACE_FIELDS(QString, age);
  FACE_FIELDS(QString, forgetting);  // "forgotten in 42 min"; empty for what is kept
  FACE_FIELDS(QString, spoken);      // for screen readers; without the text of a secret
  FACE_FIELDS(int, pinNumber);
  FACE_FIELDS(bool, isPinned, isCurrent, hasTextBeside);
  friend bool operator==(const ClipFace&, const ClipFace&) = default;
};

struct ClipMoment {
  Calendar calendar;
  Instant now;
  std::optional<Seconds> sensitiveAge;  // how long a secret is kept; absent: for ever
};

// `files`: the known facts about its files, or null.
ClipFace clipFace(const ClipRow& row, const ClipFacts& facts, const ClipFiles* files, const ClipMoment& moment);

}  // namespace ambrel
