#pragma once
// The controller of Disk Doctor: runs the scan and the rules off the main thread, and holds their results.

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "app/base/Background.h"
#include "app/disk/DiskCleaner.h"
#include "app/disk/DiskExplorer.h"
#include "app/disk/DiskFaces.h"
#include "app/disk/DiskQuestion.h"
#include "app/disk/DiskReview.h"
#include "app/disk/FindingListModel.h"
#include "core/disk.h"
#include "platform/LanguageModel.h"

namespace ambrel {

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
  using Phase = DiskPhase;

  struct Source {
    std::string url;
    QString title;
  };

  struct Seams {
    Background background;
    std::function<Instant()> now;
    Calendar calendar;
    // Absent: the rules write all texts.
    LanguageModel* model = nullptr;
    // Whether the home can be read; asked before each scan of it. Empty if it always can.
    std::function<bool()> hasAccess = {};
    // Called off the main thread.
    std::function<std::vector<SimulatorRuntime>()> runtimes = {};
    // What the user has chosen, asked at each scan. Empty: the usual.
    std::function<DiskAnalyzer()> rules = {};
    std::function<ExcludedFolders()> excluded = {};
  };

  // `home`: with symbolic links resolved.
  DiskDoctor(std::string home, DiskCleaner& disk, Seams seams, QObject* parent = nullptr);
  ~DiskDoctor() override;

  Phase phase() const { return status_.phase; }
  QString sourceTitle() const { return source_ ? source_->title : QString(); }
  const DiskFace& face() const { return face_; }
  const DiskProgress& progress() const { return progress_; }
  DiskExplorer* explorer() { return &explorer_; }
  FindingListModel* findings() { return &findings_; }
  DiskQuestion* question() { return &question_; }
  DiskReview* review() { return &review_; }

  // Scans a folder, with symbolic links resolved. Cancels a running scan. Refused while items are being moved.
  void scan(const std::string& folder);
  Q_INVOKABLE void scanHome();
  // Scans the same folder again.
  Q_INVOKABLE void scanAgain();
  // In the phase `access`: test again, or scan anyway.
  Q_INVOKABLE void retryAccess();
  Q_INVOKABLE void skipAccess();
  // Cancels the scan and drops its results.
  Q_INVOKABLE void stop();

  // With the id of a tree node or of a finding's item.
  Q_INVOKABLE void askAbout(const QString& id);
  Q_INVOKABLE void reviewSelection();
  Q_INVOKABLE void showInFolder(const QString& id);

 Q_SIGNALS:
  void faceChanged();
  void progressChanged();
  void scanFinished(std::int64_t bytes);
  // Requests to the program: let the user choose a folder to scan, open the Trash, show a path in the file manager.
  void folderAsked();
  void trashAsked();
  void showAsked(const std::string& path);

 private:
  struct ScanOutcome;
  struct AnalysisOutcome;

  void start(Source source);
  void cancelWork();
  void clear();
  void backToStart(const QString& message);
  void publish();
  void setProgress(DiskProgress progress);
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
  bool skipsAccess_ = false;
  std::optional<Source> source_;
  ExcludedFolders excluded_;  // of the present scan
  DiskStatus status_;
  DiskFace face_;
  DiskProgress progress_;
  DiskExplorer explorer_;
  FindingListModel findings_;
  DiskQuestion question_;
  DiskReview review_;
  // Asynchronous results of an older generation are dropped.
  int generation_ = 0;
  std::stop_source scanTask_;
  std::shared_ptr<ScanNews> news_;
};

}  // namespace ambrel
