#include "app/developer/DeveloperList.h"

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"

namespace ambrel {

DeveloperList::DeveloperList(Source source, Background background, Shell& shell, QObject* parent)
    : QObject(parent),
      source_(std::move(source)),
      background_(background),
      shell_(shell),
      work_(std::move(background), pause, [this] { return reading(); }) {
  keep({this, &rows_});
}

void DeveloperList::setSeen(bool isSeen) {
  if (std::exchange(isSeen_, isSeen) == isSeen || !isSeen) return;
  ticks_ = 0;
  work_.ask();
}

void DeveloperList::tick() {
  if (isSeen_ && ++ticks_ % source_.interval == 0) work_.ask();
}

void DeveloperList::lookAgain() {
  isAsked_ = true;
  work_.ask();
}

PacedWork::Job DeveloperList::reading() {
  const bool isAsked = std::exchange(isAsked_, false);
  if (!isAsked && (!isSeen_ || (source_.isDue && !source_.isDue()))) return {};
  if (source_.isDue) {
    // Other readings are too quick to be announced.
    content_.face.isWorking = true;
    Q_EMIT faceChanged();
  }
  return PacedWork::job(source_.read, [this](ToolContent content) {
    if (source_.take) source_.take(content);
    show(std::move(content));
  });
}

void DeveloperList::show(ToolContent content) {
  const ToolListFace before = std::exchange(content_, std::move(content)).face;
  publish();
  if (before != content_.face) Q_EMIT faceChanged();
}

void DeveloperList::publish() {
  std::vector<ToolRow> rows = content_.rows;
  for (ToolRow& row : rows) row.isBusy = busy_.contains(row.id);
  rows_.setRows(rows);
}

void DeveloperList::act(const QString& row, bool starts) {
  if (!source_.act || !busy_.insert(row).second) return;
  publish();
  const auto job = PacedWork::job([act = source_.act, row, starts] { return act(row, starts); },
                                  [this, row](const QString& complaint) {
                                    busy_.erase(row);
                                    publish();
                                    if (!complaint.isEmpty())
                                      shell_.showToast(tr("That did not work"), complaint,
                                                       QStringLiteral("exclamationmark.triangle"));
                                    lookAgain();
                                  });
  background_(job.work, job.done);
}

void DeveloperList::showLog(const QString& row) {
  const auto found = std::ranges::find(content_.rows, row, &ToolRow::id);
  if (!source_.log || found == content_.rows.end()) return;
  logRow_ = row;
  logTitle_ = found->title;
  log_.clear();
  Q_EMIT logChanged();
  const auto job = PacedWork::job([log = source_.log, row] { return log(row); },
                                  [this, row](const QString& text) {
                                    if (logRow_ != row) return;
                                    log_ = text.isEmpty() ? tr("No output yet.") : text;
                                    Q_EMIT logChanged();
                                  });
  background_(job.work, job.done);
}

void DeveloperList::closeLog() {
  if (logRow_.isEmpty()) return;
  for (QString* text : {&logRow_, &logTitle_, &log_}) text->clear();
  Q_EMIT logChanged();
}

}  // namespace ambrel
