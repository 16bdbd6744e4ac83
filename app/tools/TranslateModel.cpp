#include "app/tools/TranslateModel.h"

#include <QPointer>
#include <QUrl>
#include <algorithm>

#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "app/web/ServerAddress.h"
#include "core/base/Whitespace.h"
#include "core/settings.h"

namespace ambrel {
namespace {

constexpr const char* sourceKey = "translate.source";
constexpr const char* targetKey = "translate.target";

}  // namespace

TranslateModel::TranslateModel(const ToolSeams& seams, QObject* parent) : QObject(parent), seams_(seams) {}

const TranslateFace& TranslateModel::face() {
  if (languages_.empty()) {
    languages_ = translationLanguages(seams_.calendar().locale());
    read(face_);
  }
  return face_;
}

QStringList TranslateModel::targets() {
  QStringList names;
  face();
  for (const TranslationLanguage& language : languages_) names << toQString(language.name);
  return names;
}

QStringList TranslateModel::sources() { return QStringList{tr("Detect language")} + targets(); }

void TranslateModel::change(const std::function<void(TranslateFace&)>& edit) {
  TranslateFace face = face_;
  edit(face);
  if (replaced(face_, std::move(face))) Q_EMIT faceChanged();
}

void TranslateModel::reload() {
  if (languages_.empty()) return;
  change([this](TranslateFace& face) { read(face); });
}

void TranslateModel::read(TranslateFace& face) const {
  const auto indexOf = [this](const std::string& code) {
    return static_cast<int>(std::ranges::find(languages_, code, &TranslationLanguage::code) - languages_.begin());
  };
  const int count = static_cast<int>(languages_.size());
  const int source = indexOf(seams_.defaults.string(sourceKey).value_or("")) + 1;
  int target = indexOf(seams_.defaults.string(targetKey).value_or(""));
  if (target == count) target = indexOf(ownLanguage(seams_.calendar().locale()));
  face.source = source > count ? 0 : source;
  face.target = target;
  const TranslationLanguage& wanted = languages_[static_cast<std::size_t>(target)];
  face.code = toQString(wanted.code).section(QLatin1Char('-'), 0, 0).toUpper();
  face.targetName = toQString(wanted.name);
  face.address = QString::fromStdString(valueOf(seams_.defaults, setting::translateServerURL));
  const bool isAllowed =
      face.address.isEmpty() || mayReceive(face.address, valueOf(seams_.defaults, setting::translateServerAllowedURL));
  face.stranger = isAllowed ? QString() : QUrl(face.address).host();
}

void TranslateModel::begin() {
  face();
  isOpen_ = true;
  useClipboard();
}

void TranslateModel::end() {
  isOpen_ = false;
  stop();
  takeInput({});
}

void TranslateModel::useClipboard() {
  stop();
  seams_.readClipboard([self = QPointer(this), generation = generation_](const std::string& text) {
    if (!self || generation != self->generation_ || !self->isOpen_) return;
    self->takeInput(toQString(trimmedOfWhitespace(text)));
    self->translate();
  });
}

void TranslateModel::takeInput(const QString& text) {
  found_.clear();
  task_ = {};
  change([&](TranslateFace& face) {
    face.input = text;
    face.output = face.detected = face.problem = QString();
    face.isStale = false;
  });
}

void TranslateModel::setInput(const QString& text) {
  change([&](TranslateFace& face) {
    face.input = text;
    face.isStale = !text.trimmed().isEmpty();
  });
}

void TranslateModel::stop() {
  ++generation_;
  run_.request_stop();
  run_ = {};
  change([](TranslateFace& face) { face.isWorking = false; });
}

void TranslateModel::translate() {
  stop();
  const std::string text = face_.input.trimmed().toStdString();
  if (text.empty()) return takeInput(face_.input);
  if (text.size() > longestTranslation)
    return fail(tr("The text is too long. Up to %1 characters are translated at a time.").arg(longestTranslation),
                generation_);
  const auto code = [this](int index) { return languages_[static_cast<std::size_t>(index)].code; };
  task_ = {
      .text = text, .source = face_.source == 0 ? std::string() : code(face_.source - 1), .target = code(face_.target)};
  found_.clear();
  change([](TranslateFace& face) {
    face.isWorking = true;
    face.isStale = false;
    face.output = face.detected = face.problem = QString();
  });
  findTranslator(generation_);
}

// The server that was chosen, else the usual one of this machine, else the language model.
void TranslateModel::findTranslator(int generation) {
  if (!face_.stranger.isEmpty())
    return fail(tr("No text is sent to %1 until you allow it.").arg(face_.stranger), generation);
  if (!face_.address.isEmpty()) return askServer(face_.address, generation);
  server_.check(seams_.usualTranslator, [this, generation](bool isThere) {
    if (generation != generation_) return;
    if (isThere) return askServer(seams_.usualTranslator, generation);
    seams_.model.check([self = QPointer(this), generation] {
      if (!self || generation != self->generation_) return;
      if (!self->seams_.model.isAvailable())
        return self->fail(tr("No translator runs on this computer. Start a model server, or one with LibreTranslate's "
                             "interface on port 5000."),
                          generation);
      self->askModel(generation);
    });
  });
}

void TranslateModel::askServer(const QString& address, int generation) {
  change([&](TranslateFace& face) { face.by = QUrl(address).authority(); });
  server_.translate(address, task_, run_.get_token(), [this, generation](const Translation& translation) {
    if (!translation.problem.empty()) return fail(toQString(translation.problem), generation);
    show(translation, true, generation);
  });
}

void TranslateModel::askModel(int generation) {
  change([](TranslateFace& face) { face.by = tr("the language model"); });
  const TranslationPrompt prompt = translationPrompt(task_);
  const QPointer self(this);
  seams_.model.respond({.instructions = prompt.instructions,
                        .prompt = prompt.prompt,
                        .grown =
                            [self, generation](const std::string& text) {
                              if (self) self->show(parseModelTranslation(text, self->task_), false, generation);
                            }},
                       run_.get_token(), [self, generation](const LanguageModel::Answer& answer) {
                         if (!self) return;
                         const auto translation = parseModelTranslation(answer.text, self->task_);
                         if (!answer.problem.empty()) return self->fail(toQString(answer.problem), generation);
                         if (translation.text.empty())
                           return self->fail(tr("The language model gave no translation."), generation);
                         self->show(translation, true, generation);
                       });
}

void TranslateModel::show(const Translation& translation, bool isWhole, int generation) {
  if (generation != generation_) return;
  if (task_.source.empty()) found_ = translation.source;
  change([&](TranslateFace& face) {
    face.output = toQString(translation.text);
    face.detected = toQString(languageName(found_, seams_.calendar().locale()));
    face.isWorking = !isWhole;
  });
}

void TranslateModel::fail(const QString& problem, int generation) {
  if (generation != generation_) return;
  change([&](TranslateFace& face) {
    face.problem = problem;
    face.isWorking = false;
  });
}

void TranslateModel::store(const char* key, const std::string& code) {
  ambrel::store(seams_.defaults, key, DefaultsValue{code});
  reload();
  if (isOpen_) translate();
}

void TranslateModel::setSource(int index) {
  if (index < 0 || index > static_cast<int>(languages_.size())) return;
  store(sourceKey, index == 0 ? std::string() : languages_[static_cast<std::size_t>(index) - 1].code);
}

void TranslateModel::setTarget(int index) {
  if (index < 0 || index >= static_cast<int>(languages_.size())) return;
  store(targetKey, languages_[static_cast<std::size_t>(index)].code);
}

void TranslateModel::swap() {
  const std::string target = languages_[static_cast<std::size_t>(face_.target)].code;
  std::string source = face_.source > 0 ? languages_[static_cast<std::size_t>(face_.source) - 1].code : found_;
  if (std::ranges::find(languages_, source, &TranslationLanguage::code) == languages_.end() || source == target) return;
  if (!face_.output.isEmpty()) takeInput(face_.output);
  ambrel::store(seams_.defaults, sourceKey, DefaultsValue{target});
  store(targetKey, source);
}

void TranslateModel::copy() {
  if (!face_.output.isEmpty()) seams_.shell.copyText(face_.output);
}

bool TranslateModel::setAddress(const QString& address) {
  const auto typed = typedServerAddress(address);
  if (!typed) return false;
  ambrel::store(seams_.defaults, setting::translateServerURL.key, DefaultsValue{typed->toStdString()});
  reload();
  translate();
  return true;
}

void TranslateModel::allow() {
  ambrel::store(seams_.defaults, setting::translateServerAllowedURL.key, DefaultsValue{face_.address.toStdString()});
  reload();
  translate();
}

}  // namespace ambrel
