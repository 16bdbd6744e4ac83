#include "app/disk/DiskQuestion.h"

#include <QPointer>

#include "app/base/Replaced.h"
#include "app/disk/DiskTexts.h"
#include "core/disk/DiskPrompts.h"

namespace ambrel {

DiskQuestion::DiskQuestion(Seams seams, QObject* parent) : QObject(parent), seams_(std::move(seams)) {}

DiskQuestion::~DiskQuestion() { asking_.request_stop(); }

void DiskQuestion::pick(DiskTree item, std::vector<DiskFinding> findings) {
  inquiry_ = {};
  inquiry_.item = std::move(item);
  findings_ = std::move(findings);
  const QString first = QStringLiteral("Is it safe to delete this?");
  ask(first);
  if (!seams_.model) return;
  seams_.model->check([self = QPointer(this), first, item = inquiry_.item] {
    if (!self || self->inquiry_.item != item || !self->seams_.model->isAvailable()) return;
    self->inquiry_.takesQuestions = true;
    self->ask(first);
  });
}

void DiskQuestion::ask(const QString& question) {
  if (!inquiry_.item || question.trimmed().isEmpty()) return;
  asking_.request_stop();
  asking_ = {};
  const DiskItem& item = *inquiry_.item;
  const Instant now = seams_.now();
  const std::string verdict = DiskAdvice::verdict(item, findings_, seams_.home, now, seams_.calendar);
  inquiry_.question = question;
  // The rules' answer is shown until the model's arrives, and if it never does.
  inquiry_.answer = shownName(verdict);
  inquiry_.isAnswering = inquiry_.takesQuestions;
  publish();
  if (!inquiry_.isAnswering) return;
  seams_.model->respond(
      {.instructions = std::string(DiskPrompts::systemText()),
       .prompt = DiskPrompts::itemPrompt(item, question.toStdString(), verdict, now, seams_.calendar)},
      asking_.get_token(), [this, stop = asking_.get_token()](const LanguageModel::Answer& answer) {
        if (stop.stop_requested()) return;
        inquiry_.isAnswering = false;
        if (!answer.text.empty()) inquiry_.answer = shownName(answer.text);
        publish();
      });
}

void DiskQuestion::close() {
  asking_.request_stop();
  inquiry_ = {};
  findings_.clear();
  publish();
}

void DiskQuestion::publish() {
  if (replaced(face_, diskAnswer(inquiry_, seams_.home, seams_.calendar))) Q_EMIT faceChanged();
}

}  // namespace ambrel
