#include "app/disk/DiskQuestion.h"

#include <QPointer>

#include "app/disk/DiskTexts.h"
#include "core/disk/DiskPrompts.h"

namespace ambrel {

DiskQuestion::DiskQuestion(Seams seams, QObject* parent) : QObject(parent), seams_(std::move(seams)) {}

DiskQuestion::~DiskQuestion() { asking_.request_stop(); }

void DiskQuestion::pick(DiskTree item, std::vector<DiskFinding> findings) {
  picked_ = std::move(item);
  findings_ = std::move(findings);
  face_ = {
      .isOpen = true,
      .itemID = pathID(picked_->id()),
      .name = shownName(picked_->name()),
      .detail = tr("%1 · %2").arg(shownSize(seams_.calendar, picked_->size()), shownPath(picked_->url(), seams_.home))};
  const QString first = QStringLiteral("Is it safe to delete this?");
  ask(first);
  if (!seams_.model) return;
  seams_.model->check([self = QPointer(this), first, item = picked_] {
    if (!self || self->picked_ != item || !self->seams_.model->isAvailable()) return;
    self->face_.takesQuestions = true;
    self->ask(first);
  });
}

void DiskQuestion::ask(const QString& question) {
  if (!picked_ || question.trimmed().isEmpty()) return;
  asking_.request_stop();
  asking_ = {};
  const Instant now = seams_.now();
  const std::string verdict = DiskAdvice::verdict(*picked_, findings_, seams_.home, now, seams_.calendar);
  face_.question = question;
  // The rules answer until the model has a better answer, and when it has none.
  face_.answer = shownName(verdict);
  face_.isAnswering = face_.takesQuestions;
  Q_EMIT faceChanged();
  if (!face_.isAnswering) return;
  seams_.model->respond(
      {.instructions = std::string(DiskPrompts::systemText()),
       .prompt = DiskPrompts::itemPrompt(*picked_, question.toStdString(), verdict, now, seams_.calendar)},
      asking_.get_token(), [this, stop = asking_.get_token()](const LanguageModel::Answer& answer) {
        if (stop.stop_requested()) return;
        face_.isAnswering = false;
        if (!answer.text.empty()) face_.answer = shownName(answer.text);
        Q_EMIT faceChanged();
      });
}

void DiskQuestion::close() {
  asking_.request_stop();
  if (!picked_) return;
  picked_ = nullptr;
  findings_.clear();
  face_ = {};
  Q_EMIT faceChanged();
}

}  // namespace ambrel
