#include "app/assistant/Assistant.h"

#include <QPointer>
#include <utility>

#include "app/base/QmlObjects.h"
#include "app/base/StoredValue.h"
#include "core/base/UUID.h"

namespace ambrel {
namespace {

constexpr Seconds reaction{6};

}  // namespace

Assistant::Assistant(Seams seams, QObject* parent) : QObject(parent), seams_(std::move(seams)) { keep({&turns_}); }

Assistant::~Assistant() { asking_.request_stop(); }

void Assistant::setPrompt(const QString& prompt) {
  if (prompt == prompt_) return;
  prompt_ = prompt;
  Q_EMIT promptChanged();
}

QStringList Assistant::suggestions() {
  QStringList all;
  for (const std::string_view text : conversationSuggestions) all << toQString(text);
  return all;
}

void Assistant::open() {
  setPrompt({});
  if (!lastActivity_ || seams_.now() - *lastActivity_ >= conversationKept) newConversation();
  seams_.model.check([self = QPointer(this)] {
    if (self) self->takeAbsence();
  });
}

void Assistant::newConversation() {
  endWaiting();
  session_.clear();
  rows_.clear();
  turns_.setRows(rows_);
}

void Assistant::ask(const QString& text) {
  setPrompt(text);
  send();
}

void Assistant::send() {
  const QString text = prompt_.trimmed();
  if (text.isEmpty() || isResponding_) return;
  setPrompt({});
  lastActivity_ = seams_.now();
  rows_.push_back({.turn = QString::fromStdString(UUID::random().text()), .question = text, .isThinking = true});
  turns_.setRows(rows_);
  isResponding_ = true;
  Q_EMIT isRespondingChanged();
  seams_.model.check([self = QPointer(this), text, perform = seams_.performer(), generation = generation_] {
    if (self && generation == self->generation_) self->answer(text, perform);
  });
}

void Assistant::answer(const QString& text, const Perform& perform) {
  takeAbsence();
  if (seams_.model.isAvailable()) return answerByModel(text, perform);
  show(QString::fromStdString(commandReply(text.toStdString(), perform)), true);
  endWaiting();
  seams_.buddy.showHappy(reaction);
  seams_.buddy.play(BuddyTrigger::nod);
}

void Assistant::answerByModel(const QString& text, const Perform& perform) {
  seams_.buddy.setThinking(true);
  const auto isLate = [this, generation = generation_] { return generation != generation_; };
  seams_.model.respond(
      {.instructions = assistantInstructions(),
       .prompt = text.toStdString(),
       .earlier = session_,
       .perform = perform,
       .grown =
           [this, isLate](const std::string& soFar) {
             if (!isLate()) show(QString::fromStdString(soFar), false);
           }},
      asking_.get_token(), [this, isLate, question = text.toStdString()](const LanguageModel::Answer& answer) {
        if (isLate()) return;
        const bool hasAnswer = !answer.text.empty();
        if (hasAnswer) session_.push_back({question, answer.text});
        const std::string shown = hasAnswer ? answer.text : "Sorry, I could not do that. " + answer.problem;
        show(QString::fromStdString(shown), true);
        endWaiting();
        if (hasAnswer)
          seams_.buddy.showHappy(reaction);
        else
          seams_.buddy.showError(reaction);
        seams_.buddy.play(hasAnswer ? BuddyTrigger::nod : BuddyTrigger::shake);
      });
}

// The question that is awaited is the last one.
void Assistant::show(const QString& text, bool isWhole) {
  AssistantTurn& turn = rows_.back();
  turn.answer = text;
  turn.isThinking = text.isEmpty() && !isWhole;
  turn.isWhole = isWhole;
  turns_.setRows(rows_);
}

void Assistant::stop() {
  if (!isResponding_) return;
  endWaiting();
  const QString soFar = rows_.back().answer;
  show(soFar.isEmpty() ? tr("Stopped.") : soFar, true);
}

void Assistant::endWaiting() {
  if (!isResponding_) return;
  asking_.request_stop();
  asking_ = {};
  ++generation_;
  isResponding_ = false;
  seams_.buddy.setThinking(false);
  Q_EMIT isRespondingChanged();
}

void Assistant::takeAbsence() {
  const auto absence = seams_.model.absence();
  const QString warning =
      absence ? toQString(sentence(*absence)) + QStringLiteral(" Simple commands still work.") : QString();
  if (warning == warning_) return;
  warning_ = warning;
  Q_EMIT warningChanged();
}

}  // namespace ambrel
