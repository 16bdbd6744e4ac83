#include "app/disk/DiskDoctor.h"

#include <QPointer>
#include <filesystem>

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "app/disk/DiskTexts.h"
#include "core/disk/DiskPrompts.h"

namespace ambrel {
namespace {

constexpr std::int64_t smallestListed = 1'000'000;

}  // namespace

struct DiskDoctor::ScanOutcome {
  std::optional<DiskScanResult> result;
};

struct DiskDoctor::AnalysisOutcome {
  std::optional<std::vector<DiskFinding>> findings;
  bool knowsAccess = true;
};

DiskDoctor::DiskDoctor(std::string home, DiskCleaner& disk, Seams seams, QObject* parent)
    : QObject(parent),
      home_(std::move(home)),
      disk_(disk),
      seams_(std::move(seams)),
      explorer_(seams_.calendar),
      findings_(home_, seams_.calendar, seams_.now),
      question_({.model = seams_.model, .now = seams_.now, .calendar = seams_.calendar, .home = home_}),
      review_(disk_, home_, seams_.calendar) {
  keep({&explorer_, &findings_, &question_, &review_});
  connect(&findings_, &FindingListModel::ruleOpened, this, &DiskDoctor::explain);
  connect(&review_, &DiskReview::reported, this, &DiskDoctor::takeReport);
}

DiskDoctor::~DiskDoctor() { cancelWork(); }

void DiskDoctor::cancelWork() {
  ++generation_;
  scanTask_.request_stop();
  scanTask_ = {};
  if (news_) news_->close();
  news_.reset();
}

void DiskDoctor::clear() {
  explorer_.clear();
  findings_.setFindings({});
  question_.close();
  review_.close();
  disk_.setKept({});
  setProgress({});
  status_ = {};
}

void DiskDoctor::backToStart(const QString& message) {
  cancelWork();
  clear();
  status_.message = message;
  publish();
}

void DiskDoctor::publish() {
  if (replaced(face_, diskFace(status_, home_, seams_.calendar))) Q_EMIT faceChanged();
}

void DiskDoctor::setProgress(DiskProgress progress) {
  if (replaced(progress_, std::move(progress))) Q_EMIT progressChanged();
}

void DiskDoctor::scanHome() { start({.url = home_, .title = tr("Home")}); }

void DiskDoctor::scan(const std::string& folder) {
  // Moves refuse paths that contain symbolic links.
  std::error_code error;
  const std::string resolved = std::filesystem::canonical(folder, error).string();
  const std::string path = error ? standardizedPath(folder) : resolved;
  if (path == home_) return scanHome();
  const auto slash = path.rfind('/');
  start({.url = path, .title = shownName(path.size() > 1 ? path.substr(slash + 1) : path)});
}

void DiskDoctor::scanAgain() {
  if (source_) start(*source_);
}

void DiskDoctor::retryAccess() {
  if (phase() == Phase::access) scanAgain();
}

void DiskDoctor::skipAccess() {
  skipsAccess_ = true;
  retryAccess();
}

void DiskDoctor::start(Source source) {
  if (disk_.isTrashing()) return;
  cancelWork();
  clear();
  source_ = std::move(source);
  const bool isGuarded = seams_.hasAccess && source_->url == home_ && !skipsAccess_ && !seams_.hasAccess();
  status_.phase = isGuarded ? Phase::access : Phase::scanning;
  publish();
  if (!isGuarded) beginScan();
}

void DiskDoctor::beginScan() {
  news_ = std::make_shared<ScanNews>(*this, seams_.now, [this] { showNews(); });
  showNews();
  excluded_ = seams_.excluded ? seams_.excluded() : ExcludedFolders();
  const auto outcome = std::make_shared<ScanOutcome>();
  seams_.background(
      [outcome, url = source_->url, watch = news_->watch(), stop = scanTask_.get_token(),
       scanner = DiskScanner{.excluded = excluded_, .minItemSize = smallestListed}] {
        try {
          outcome->result = scanner.scan(url, watch, stop);
        } catch (const FileError&) {
        } catch (const Cancelled&) {
        }
      },
      [this, outcome, generation = generation_] {
        if (generation == generation_) finishScan(*outcome);
      });
}

void DiskDoctor::showNews() {
  if (!news_) return;
  const ScanNews::Snapshot news = news_->take();
  if (status_.isAnalyzing) return setProgress(compareProgress(news.compared, seams_.calendar));
  setProgress(scanProgress(news, sourceTitle(), seams_.calendar));
  DiskFolderBuilder builder(source_->url, distantPast, 0);
  std::vector<std::string> missing = news.folders;
  for (const DiskTree& folder : news.finished) {
    std::erase(missing, folder->name());
    builder.add(outline(*folder, 2, 0));
  }
  explorer_.showUnfinished({.root = makeTree(std::move(builder).build(DiskItem::Kind::folder)),
                            .share = news.share,
                            .bytes = news.progress.bytes,
                            .missing = std::move(missing)},
                           sourceTitle());
}

void DiskDoctor::finishScan(ScanOutcome& outcome) {
  if (!outcome.result) return backToStart(tr("Buddy could not read %1").arg(sourceTitle()));
  explorer_.show(std::move(outcome.result->root), sourceTitle());
  status_.skipped = std::move(outcome.result->skipped);
  status_.isAnalyzing = true;
  publish();
  showNews();
  analyze();
}

void DiskDoctor::analyze() {
  const auto outcome = std::make_shared<AnalysisOutcome>();
  DiskAnalyzer rules = seams_.rules ? seams_.rules() : DiskAnalyzer();
  rules.excluded = excluded_;
  seams_.background(
      [outcome, root = explorer_.root(), home = home_, runtimes = seams_.runtimes, now = seams_.now(),
       calendar = seams_.calendar, rules = std::move(rules),
       control = AnalysisControl{.stop = scanTask_.get_token(), .progress = news_->compareProgress()}] {
        try {
          outcome->knowsAccess = ambrel::knowsAccess(*root);
          outcome->findings = rules.analyze(*root, home, runtimes ? runtimes() : std::vector<SimulatorRuntime>(), now,
                                            calendar, control);
        } catch (const Cancelled&) {
        }
      },
      [this, outcome, generation = generation_] {
        if (generation == generation_ && outcome->findings) finishAnalysis(*outcome);
      });
}

void DiskDoctor::finishAnalysis(AnalysisOutcome& outcome) {
  const DiskItem& root = *explorer_.root();
  std::vector<DiskFinding>& findings = *outcome.findings;
  status_.phase = Phase::done;
  status_.isAnalyzing = false;
  status_.knowsAccess = outcome.knowsAccess;
  status_.headline = toQString(DiskAdvice::headline(findings));
  status_.summary = shownName(DiskAdvice::summary(root, findings, seams_.calendar));
  disk_.setFreeableBytes(DiskAdvice::freeableBytes(findings));
  disk_.setKept(DiskAdvice::keptCopies(findings));
  findings_.setFindings(std::move(findings));
  if (news_) news_->close();
  news_.reset();
  publish();
  Q_EMIT scanFinished(root.size());
  askForHeadline();
}

// A model may come and go while the window is open.
void DiskDoctor::withModel(std::function<void(LanguageModel&)> ask) {
  if (!seams_.model) return;
  seams_.model->check([self = QPointer(this), generation = generation_, ask = std::move(ask)] {
    if (self && generation == self->generation_ && self->seams_.model->isAvailable()) ask(*self->seams_.model);
  });
}

void DiskDoctor::askForHeadline() {
  withModel([this](LanguageModel& model) {
    model.respond({.instructions = std::string(DiskPrompts::systemText()),
                   .prompt = DiskPrompts::summaryPrompt(*explorer_.root(), findings_.findings(), seams_.calendar)},
                  scanTask_.get_token(), [this, generation = generation_](const LanguageModel::Answer& answer) {
                    if (generation != generation_ || answer.text.empty()) return;
                    status_.headline = shownName(answer.text);
                    publish();
                  });
  });
}

void DiskDoctor::explain(FindingRule rule) {
  if (findings_.isExplained(rule)) return;
  withModel([this, rule](LanguageModel& model) {
    for (const DiskFinding& finding : findings_.findings()) {
      if (finding.rule != rule) continue;
      model.respond({.instructions = std::string(DiskPrompts::systemText()),
                     .prompt = DiskPrompts::findingPrompt(finding, seams_.calendar)},
                    scanTask_.get_token(), [this, rule, generation = generation_](const LanguageModel::Answer& answer) {
                      if (generation != generation_ || answer.text.empty()) return;
                      findings_.setExplanation(rule, shownName(answer.text));
                    });
      return;
    }
  });
}

void DiskDoctor::stop() {
  if (phase() == Phase::scanning) backToStart(tr("The scan was stopped. Nothing was changed."));
}

void DiskDoctor::askAbout(const QString& id) {
  if (phase() != Phase::done) return;
  if (const DiskItem* item = explorer_.node(id)) question_.pick(shared(explorer_.root(), *item), findings_.findings());
}

void DiskDoctor::reviewSelection() {
  if (phase() != Phase::done) return;
  question_.close();
  const std::vector<CleanupItem> chosen = findings_.selection().items();
  // The user may have excluded more since the scan.
  std::vector<CleanupItem> items = seams_.excluded ? leavingOut(seams_.excluded(), chosen, *explorer_.root()) : chosen;
  if (items.empty() && !chosen.empty()) {
    status_.summary = tr("What you have selected is in folders that are excluded now. Scan again to see the rest.");
    return publish();
  }
  review_.begin(std::move(items));
}

void DiskDoctor::showInFolder(const QString& id) {
  if (const DiskItem* item = explorer_.node(id)) Q_EMIT showAsked(item->url());
}

void DiskDoctor::takeReport(const DiskAdvice::TrashReport& report) {
  findings_.takeReport(report);
  disk_.setFreeableBytes(DiskAdvice::freeableBytes(findings_.findings()));
  if (report.bytesMoved <= 0) return;
  status_.headline = toQString(DiskAdvice::headline(findings_.findings()));
  status_.summary =
      tr("%1. Scan again to see what is left.").arg(toQString(DiskAdvice::message(report, seams_.calendar).title));
  publish();
}

}  // namespace ambrel
