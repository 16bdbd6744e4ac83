#include "app/disk/DiskQuestion.h"

#include "app/disk/DiskTexts.h"
#include "core/disk/DiskPrompts.h"

namespace ambrel {

DiskQuestion::DiskQuestion(Seams seams, QObject* parent) : QObject(parent), seams_(std::move(seams)) {}

DiskQuestion::~DiskQuestion() { asking_.request_stop(); }

QString DiskQuestion::name() const { return picked_ ? shownName(picked_->name()) : QString(); }

QString DiskQuestion::detail() const {
  if (!picked_) return {};
  return tr("%1 · %2").arg(shownSize(seams_.calendar, picked_->size()), shownPath(picked_->url(), seams_.home));
}

QString DiskQuestion::itemID() const { return picked_ ? pathID(picked_->id()) : QString(); }

void DiskQuestion::pick(DiskTree item, std::vector<DiskFinding> findings) {
  picked_ = std::move(item);
  findings_ = std::move(findings);
  Q_EMIT pickedChanged();
  ask(QStringLiteral("Is it safe to delete this?"));
}

void DiskQuestion::ask(const QString& question) {
  if (!picked_ || question.trimmed().isEmpty()) return;
  asking_.request_stop();
  asking_ = {};
  question_ = question;
  const Instant now = seams_.now();
  const std::string verdict = DiskAdvice::verdict(*picked_, findings_, seams_.home, now, seams_.calendar);
  // What the rules say stands until the model has a better answer, and when it has none.
  answer_ = shownName(verdict);
  isAnswering_ = takesQuestions();
  Q_EMIT answerChanged();
  if (!isAnswering_) return;
  seams_.model->respond(
      {.instructions = std::string(DiskPrompts::systemText()),
       .prompt = DiskPrompts::itemPrompt(*picked_, question.toStdString(), verdict, now, seams_.calendar)},
      asking_.get_token(), [this, stop = asking_.get_token()](std::optional<std::string> answer) {
        if (stop.stop_requested()) return;
        isAnswering_ = false;
        if (answer && !answer->empty()) answer_ = QString::fromStdString(*answer);
        Q_EMIT answerChanged();
      });
}

void DiskQuestion::close() {
  asking_.request_stop();
  isAnswering_ = false;
  if (!picked_) return;
  picked_ = nullptr;
  findings_.clear();
  question_.clear();
  answer_.clear();
  Q_EMIT pickedChanged();
  Q_EMIT answerChanged();
}

}  // namespace ambrel
