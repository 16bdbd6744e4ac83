#include "app/tools/TextToolModel.h"

#include <QPointer>
#include <QStandardPaths>
#include <algorithm>

#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "app/tools/ToolFiles.h"
#include "core/settings.h"
#include "core/widgets.h"

namespace ambrel {
namespace {

// What takes no longer than a frame.
constexpr std::size_t mostAtOnce = 100'000;
constexpr const char* loremKey = "loremIndex";

const TextToolModel::Text nothing = std::make_shared<const std::string>();

}  // namespace

TextToolModel::TextToolModel(const TextTool& tool, const ToolSeams& seams, QObject* parent)
    : SeenModel(parent), tool_(tool), seams_(seams), clipboard_(nothing), input_(nothing) {
  reload();
}

QString TextToolModel::widgetId() const { return toQString(nameOf(tool_.widget)); }
QString TextToolModel::title() const { return toQString(ambrel::title(tool_.widget)); }
QString TextToolModel::symbol() const { return toQString(ambrel::symbol(tool_.widget)); }

QStringList TextToolModel::choices() const {
  QStringList titles;
  for (const ToolChoice& choice : tool_.choices)
    if (!choice.title.empty()) titles << toQString(choice.title);
  return titles.size() > 1 ? titles : QStringList();
}

std::string TextToolModel::choiceKey() const { return std::string(nameOf(tool_.widget)) + ".mode"; }

void TextToolModel::reload() {
  const auto last = static_cast<std::int64_t>(tool_.choices.size()) - 1;
  const auto stored = seams_.defaults.integer(choiceKey()).value_or(0);
  choice_ = stored < 0 || stored > last ? 0 : static_cast<int>(stored);
  Q_EMIT choiceChanged();
  renew();
}

void TextToolModel::setChoice(int choice) {
  if (choice == choice_ || choice < 0 || choice >= static_cast<int>(tool_.choices.size())) return;
  choice_ = choice;
  store(seams_.defaults, choiceKey(), choice);
  Q_EMIT choiceChanged();
  renew();
}

void TextToolModel::neededChanged() {
  if (isStale_) renew();
}

void TextToolModel::setClipboard(Text text) {
  if (*text == *clipboard_) return;
  clipboard_ = std::move(text);
  if (!isOpen() || input_->empty()) useClipboard();
}

void TextToolModel::useClipboard() { setText(clipboard_); }

void TextToolModel::clear() { setText(nothing); }

void TextToolModel::closed() {
  if (takesInput()) useClipboard();
}

void TextToolModel::setInput(const QString& text) {
  if (!result_.face.inputNote.isEmpty() || text == result_.face.input) return;
  setText(std::make_shared<const std::string>(text.toStdString()));
}

void TextToolModel::take(const QString& text, const QList<QUrl>& urls) {
  const auto file = std::find_if(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
  if (file == urls.end()) return setText(std::make_shared<const std::string>(text.toStdString()));
  const auto dropped = std::make_shared<DroppedText>();
  seams_.background([dropped, path = file->toLocalFile()] { *dropped = readDropped(path); },
                    [self = QPointer(this), dropped] {
                      if (!self) return;
                      if (!dropped->problem.isEmpty()) return self->say(self->title(), dropped->problem);
                      self->setText(std::make_shared<const std::string>(std::move(dropped->text)));
                    });
}

void TextToolModel::makeNew() {
  if (takesInput()) return;
  if (tool_.widget == DockWidget::loremIpsum) {
    const auto next = std::max<std::int64_t>(0, seams_.defaults.integer(loremKey).value_or(0)) + 1;
    store(seams_.defaults, loremKey, DefaultsValue{next % 1'000'000});
  }
  renew();
}

void TextToolModel::setText(Text text) {
  if (*text == *input_) return;
  input_ = std::move(text);
  renew();
}

void TextToolModel::renew() {
  ++generation_;
  copiesWhenDone_ = false;
  isStale_ = !isNeeded();
  if (isStale_) return;
  const auto work =
      [&tool = tool_, choice = tool_.choices[static_cast<std::size_t>(choice_)].id, input = input_,
       source = ToolSource{.random = fillRandomly,
                           .now = seams_.now(),
                           .calendar = seams_.calendar(),
                           .passwordLength = static_cast<int>(valueOf(seams_.defaults, setting::passwordLength)),
                           .loremIndex = std::max<std::int64_t>(0, seams_.defaults.integer(loremKey).value_or(0))}] {
        return toolResult(tool, {.choice = choice, .input = *input, .source = source});
      };
  if (input_->size() <= mostAtOnce) return publish(work(), generation_);
  if (!result_.face.isWorking) {
    result_.face.isWorking = true;
    Q_EMIT faceChanged();
  }
  const auto result = std::make_shared<ToolResult>();
  seams_.background([work, result] { *result = work(); },
                    [self = QPointer(this), result, generation = generation_] {
                      if (self) self->publish(std::move(*result), generation);
                    });
}

void TextToolModel::publish(ToolResult result, int generation) {
  if (generation != generation_) return;
  const bool differs = result.face != result_.face;
  result_ = std::move(result);
  if (differs) Q_EMIT faceChanged();
  if (std::exchange(copiesWhenDone_, false)) writeResult();
}

void TextToolModel::copy() {
  if (result_.face.isWorking)
    copiesWhenDone_ = true;
  else
    writeResult();
}

bool TextToolModel::act() {
  if (takesInput() && input_->empty()) return false;
  copy();
  return true;
}

void TextToolModel::writeResult() {
  if (!result_.face.hasOutput) return say(title(), result_.face.fault);
  if (!result_.face.picture.isNull()) {
    seams_.write({{"image/png", enlargedPNG(result_.face.picture).toStdString()}});
    say(tr("Copied"), title());
  } else if (tool_.widget == DockWidget::password) {
    auto representations = textRepresentations(result_.outcome.output);
    representations.push_back({"x-kde-passwordManagerHint", "secret"});
    seams_.write(std::move(representations));
    say(tr("Copied"), tr("The password is not kept in the history"));
  } else {
    seams_.shell.copyText(toQString(result_.outcome.output));
  }
  makeNew();
}

void TextToolModel::save() {
  if (result_.face.picture.isNull()) return;
  const auto saved = std::make_shared<SavedFile>();
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
  seams_.background([saved, folder, picture = result_.face.picture,
                     name = title()] { *saved = savePNG(enlargedPNG(picture), folder, name); },
                    [self = QPointer(this), saved] {
                      if (!self) return;
                      const bool isSaved = saved->problem.isEmpty();
                      self->say(isSaved ? tr("Saved") : tr("The picture was not saved"),
                                isSaved ? saved->path : saved->problem);
                    });
}

void TextToolModel::say(const QString& title, const QString& detail) const {
  seams_.shell.showToast(title, detail, symbol());
}

}  // namespace ambrel
