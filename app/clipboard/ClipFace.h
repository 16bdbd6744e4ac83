#pragma once
// What a card of the shelf shows of a clip.

#include <QColor>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>
#include <optional>
#include <string>

#include "app/clipboard/ClipFileLookup.h"
#include "core/base/Calendar.h"
#include "core/clipboard/Capture.h"
#include "core/clipboard/ClipIndex.h"

namespace ambrel {

// What may change of a clip, and what tells one from another. The rest is in its facts, which never change.
struct ClipRow {
  UUID id;
  ClipKind kind = ClipKind::text;
  Instant createdAt;
  std::string imageFileName = {};
  QString program = {};  // the name of the one that it comes from; empty when unknown
  bool hasTextBeside = false;
  bool isPinned = false;
  bool isKept = false;                // no sweep takes it
  bool isCurrent = false;             // on the pasteboard now
  int pinNumber = 0;                  // 0 without one
  std::optional<LostCopy> lost = {};  // no clip, but a copy that could not be taken over
  friend bool operator==(const ClipRow&, const ClipRow&) = default;
};

struct ClipFace {
  Q_GADGET
  QML_VALUE_TYPE(clipFace)
  Q_PROPERTY(QString clipId MEMBER clipId FINAL)
  Q_PROPERTY(QString look MEMBER look FINAL)
  Q_PROPERTY(QString kindText MEMBER kindText FINAL)
  Q_PROPERTY(QString title MEMBER title FINAL)
  Q_PROPERTY(QString detail MEMBER detail FINAL)
  Q_PROPERTY(QString code MEMBER code FINAL)
  Q_PROPERTY(QColor swatch MEMBER swatch FINAL)
  Q_PROPERTY(QVariantList files MEMBER files FINAL)
  Q_PROPERTY(QString moreFiles MEMBER moreFiles FINAL)
  Q_PROPERTY(QString picture MEMBER picture FINAL)
  Q_PROPERTY(QString foot MEMBER foot FINAL)
  Q_PROPERTY(QString age MEMBER age FINAL)
  Q_PROPERTY(QString forgetting MEMBER forgetting FINAL)
  Q_PROPERTY(QString spoken MEMBER spoken FINAL)
  Q_PROPERTY(int pinNumber MEMBER pinNumber FINAL)
  Q_PROPERTY(bool isPinned MEMBER isPinned FINAL)
  Q_PROPERTY(bool isCurrent MEMBER isCurrent FINAL)
  Q_PROPERTY(bool hasTextBeside MEMBER hasTextBeside FINAL)

 public:
  QString clipId;
  QString look;           // the name of a ClipLook; "lost" for what is no clip
  QString kindText;       // "Text", "Files"
  QString title, detail;  // ClipPreview's
  // The code of a clip that is code, for a text of the style StyledText. Its colours are the names of a CodeWord, in
  // quotation marks, which nothing else in it is.
  QString code;
  QColor swatch = Qt::transparent;
  QVariantList files;  // {name, symbol}
  QString moreFiles;   // "and 2 more"
  QString picture;     // the name of its file
  QString foot;        // where it comes from, or how large it is
  QString age;
  QString forgetting;  // "forgotten in 42 min"; empty for what is kept
  QString spoken;      // all of it in a sentence; a secret is not told
  int pinNumber = 0;
  bool isPinned = false, isCurrent = false, hasTextBeside = false;
  friend bool operator==(const ClipFace&, const ClipFace&) = default;
};

struct ClipMoment {
  Calendar calendar;
  Instant now;
  std::optional<Seconds> sensitiveAge;  // how long a secret is kept; absent: for ever
};

// `files`: what is known of them, null while nothing is.
ClipFace clipFace(const ClipRow& row, const ClipFacts& facts, const ClipFiles* files, const ClipMoment& moment);

}  // namespace ambrel
