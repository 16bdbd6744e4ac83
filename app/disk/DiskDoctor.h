#pragma once
// Disk Doctor from the choice of a folder to the report of a move: it runs the scan and the rules off the main thread,
// and holds what they found.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "app/base/Background.h"
#include "app/base/Face.h"
#include "app/disk/DiskCleaner.h"
#include "app/disk/DiskExplorer.h"
#include "app/disk/DiskProgress.h"
#include "app/disk/DiskQuestion.h"
#include "app/disk/DiskReview.h"
#include "app/disk/FindingListModel.h"
#include "core/disk.h"
#include "platform/LanguageModel.h"

namespace ambrel {

class ScanNews;

// What the window shows of the scan, in words.
struct DiskFace {
  Q_GADGET
  QML_VALUE_TYPE(diskFace)
 public:
  FACE_FIELDS(bool, isGuarded);    // the home may not be read
  FACE_FIELDS(bool, isScanning);   // until the result is there
  FACE_FIELDS(bool, isAnalyzing);  // the folders are read, and copies are still looked for
  FACE_FIELDS(bool, isDone);
  FACE_FIELDS(QString, message);  // why there is no result: a folder that could not be read, a scan that was stopped
  FACE_FIELDS(QString, headline, summary, skippedText, skippedFolders);
  FACE_FIELDS(QString, unknownText);  // what the rules could not tell on this volume; empty where they could tell all
  friend bool operator==(const DiskFace&, const DiskFace&) = default;
};

class DiskDoctor : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("built by the program")
  Q_PROPERTY(ambrel::DiskFace face READ face NOTIFY faceChanged FINAL)
  Q_PROPERTY(ambrel::DiskProgress progress READ progress NOTIFY progressChanged FINAL)
  Q_PROPERTY(ambrel::DiskExplorer* explorer READ explorer CONSTANT FINAL)
  Q_PROPERTY(ambrel::FindingListModel* findings READ findings CONSTANT FINAL)
  Q_PROPERTY(ambrel::DiskQuestion* question READ question CONSTANT FINAL)
  Q_PROPERTY(ambrel::DiskReview* review READ review CONSTANT FINAL)

 public:
  enum class Phase { start, access, scanning, done };

  struct Source {
    std::string url;
    QString title;
  };

  struct Seams {
    Background background;
    std::function<Instant()> now;
    Calendar calendar;
    // Absent: the words are those of the rules.
    LanguageModel* model = nullptr;
    // Whether the home may be read; asked before it is scanned. Empty where nothing guards it.
    std::function<bool()> hasAccess = {};
    // Called off the main thread. Empty where no tool has runtimes.
    std::function<std::vector<SimulatorRuntime>()> runtimes = {};
  };

  // `home`: with its links resolved.
  DiskDoctor(std::string home, DiskCleaner& disk, Seams seams, QObject* parent = nullptr);
  ~DiskDoctor() override;

  Phase phase() const { return phase_; }
  QString sourceTitle() const { return source_ ? source_->title : QString(); }
  const DiskFace& face() const { return face_; }
  const DiskProgress& progress() const { return progress_; }
  DiskExplorer* explorer() { return &explorer_; }
  FindingListModel* findings() { return &findings_; }
  DiskQuestion* question() { return &question_; }
  DiskReview* review() { return &review_; }

  // Scans a folder, or what a link leads to; a scan that is under way gives way. Refused while a list is being moved.
  void scan(const std::string& folder);
  Q_INVOKABLE void scanHome();
  // The same folder again.
  Q_INVOKABLE void scanAgain();
  Q_INVOKABLE void chooseFolder();
  // From the phase `access`: look again, or go on without.
  Q_INVOKABLE void retryAccess();
  Q_INVOKABLE void skipAccess();
  // Ends the scan or the search for copies; nothing of it is kept.
  Q_INVOKABLE void stop();

  // By a node of the tree, or by an item of a finding.
  Q_INVOKABLE void askAbout(const QString& id);
  Q_INVOKABLE void reviewSelection();
  Q_INVOKABLE void showInFolder(const QString& id);
  Q_INVOKABLE void openTrash();

  // The bytes that were scanned.
  std::function<void(std::int64_t)> onScanFinished;
  std::function<void(std::function<void(const std::string& folder)> chosen)> onChooseFolder;
  std::function<void(const std::string& path)> onShowInFolder;
  std::function<void()> onOpenTrash;

 Q_SIGNALS:
  void faceChanged();
  void progressChanged();

 private:
  struct ScanOutcome;
  struct AnalysisOutcome;

  void start(Source source);
  void cancelWork();
  void clear();
  void setPhase(Phase phase, bool isAnalyzing = false, const QString& message = {});
  void setProgress(DiskProgress progress);
  void tellWhatWasSkipped(std::vector<std::string> skipped);
  void beginScan();
  void showNews();
  void finishScan(ScanOutcome& outcome);
  void analyze();
  void finishAnalysis(AnalysisOutcome& outcome);
  void withModel(std::function<void(LanguageModel&)> ask);
  void askForHeadline();
  void explain(FindingRule rule);
  void takeReport(const DiskAdvice::TrashReport& report);

  std::string home_;
  DiskCleaner& disk_;
  Seams seams_;
  Phase phase_ = Phase::start;
  bool skipsAccess_ = false;
  std::optional<Source> source_;
  DiskFace face_;
  DiskProgress progress_;
  DiskExplorer explorer_;
  FindingListModel findings_;
  DiskQuestion question_;
  DiskReview review_;
  // Everything that comes back later belongs to the generation that it began under, or is dropped.
  int generation_ = 0;
  std::stop_source scanTask_;
  std::shared_ptr<ScanNews> news_;
};

}  // namespace ambrel
