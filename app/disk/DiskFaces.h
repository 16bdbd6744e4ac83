#pragma once
// What the window shows of a scan and of a question, as pure functions of their state.

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "app/base/Face.h"
#include "app/disk/ScanNews.h"
#include "core/base/Calendar.h"

namespace ambrel {

enum class DiskPhase { start, access, scanning, done };

// The state of a scan.
struct DiskStatus {
  DiskPhase phase = DiskPhase::start;
  bool isAnalyzing = false;  // the tree is complete, and duplicates are being searched
  QString message = {};      // why there is no result: unreadable folder, stopped scan
  QString headline = {}, summary = {};
  std::vector<std::string> skipped = {};  // folders that could not be read
  bool knowsAccess = true;                // the volume records access times
};

struct DiskFace {
  Q_GADGET
  QML_VALUE_TYPE(diskFace)
 public:
  FACE_FIELDS(bool, isGuarded);   // the home cannot be read
  FACE_FIELDS(bool, isScanning);  // no result yet
  FACE_FIELDS(bool, isAnalyzing, isDone);
  FACE_FIELDS(QString, message, headline, summary);
  FACE_FIELDS(QString, skippedText, skippedFolders);
  FACE_FIELDS(QString, unknownText);  // what the rules could not find out on this volume; empty if nothing
  friend bool operator==(const DiskFace&, const DiskFace&) = default;
};
DiskFace diskFace(const DiskStatus& status, const std::string& home, const Calendar& calendar);

// How far a scan is, in words.
struct DiskProgress {
  Q_GADGET
  QML_VALUE_TYPE(diskProgress)
 public:
  FACE_FIELDS(QString, title, detail);
  FACE_FIELDS(QString, figure);  // "71 %"; empty when the share is not known
  FACE_FIELDS(double, percent);
  friend bool operator==(const DiskProgress&, const DiskProgress&) = default;
};
// During the scan, and during the search for duplicates.
DiskProgress scanProgress(const ScanNews::Snapshot& news, const QString& source, const Calendar& calendar);
DiskProgress compareProgress(const CompareProgress& compared, const Calendar& calendar);

// A question about one item, and its answer so far.
struct DiskInquiry {
  DiskTree item;  // null: no question
  QString question = {}, answer = {};
  bool isAnswering = false;     // a better answer may come
  bool takesQuestions = false;  // the model is available, so the user can type questions
};

struct DiskAnswer {
  Q_GADGET
  QML_VALUE_TYPE(diskAnswer)
 public:
  FACE_FIELDS(bool, isOpen, isAnswering, takesQuestions);
  FACE_FIELDS(QString, itemID, name);
  FACE_FIELDS(QString, detail);  // size and path
  FACE_FIELDS(QString, question, answer);
  friend bool operator==(const DiskAnswer&, const DiskAnswer&) = default;
};
DiskAnswer diskAnswer(const DiskInquiry& inquiry, const std::string& home, const Calendar& calendar);

}  // namespace ambrel
