#include "app/tools/EmojiModel.h"

#include <QPointer>
#include <algorithm>

#include "app/base/QmlObjects.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/base/Files.h"

namespace ambrel {
namespace {

constexpr const char* recentKey = "emojiRecent";
constexpr const char* toneKey = "emoji.tone";
constexpr std::size_t mostRecent = 32;
constexpr std::uint64_t largestFile = 8u << 20;

}  // namespace

EmojiModel::EmojiModel(const ToolSeams& seams, QObject* parent) : QObject(parent), seams_(seams) {
  keep({&rows_});
  face_.tones = {QStringLiteral("✋"),       QStringLiteral("✋🏻"), QStringLiteral("✋🏼"),
                 QStringLiteral("✋🏽"), QStringLiteral("✋🏾"), QStringLiteral("✋🏿")};
  reload();
}

void EmojiModel::reload() {
  recent_ = seams_.defaults.strings(recentKey).value_or(std::vector<std::string>());
  if (recent_.size() > mostRecent) recent_.resize(mostRecent);
  face_.tone = static_cast<int>(std::clamp<std::int64_t>(seams_.defaults.integer(toneKey).value_or(0), 0, skinTones));
  face_.last = recent_.empty() ? QString() : toQString(recent_.front());
  Q_EMIT faceChanged();
  show();
}

void EmojiModel::begin() {
  query_.clear();
  if (!emoji_.empty()) return show();
  const auto read = std::make_shared<std::vector<Emoji>>();
  seams_.background(
      [read, file = seams_.emojiFile] { *read = parseEmojiList(readFile(file, largestFile).value_or("")); },
      [self = QPointer(this), read, generation = ++generation_] {
        if (!self || generation != self->generation_) return;
        self->emoji_ = std::move(*read);
        EmojiFace face = self->face_;
        face.groups = QStringList{tr("Recently used")};
        face.samples = QStringList{QString()};
        for (const Emoji& emoji : self->emoji_)
          if (const QString group = toQString(emoji.group); face.groups.back() != group) {
            face.groups << group;
            face.samples << toQString(emoji.text);
          }
        face.group = self->recent_.empty() ? 1 : 0;
        face.problem = self->emoji_.empty() ? tr("The list of Unicode's emoji is not installed (package unicode-data).")
                                            : QString();
        if (replaced(self->face_, face)) Q_EMIT self->faceChanged();
        self->show();
      });
}

void EmojiModel::end() {
  ++generation_;
  emoji_ = {};
  rows_.setRows({});
}

void EmojiModel::search(const QString& query) {
  if (replaced(query_, query.left(100))) show();
}

void EmojiModel::setGroup(int group) {
  if (!replaced(face_.group, std::clamp(group, 0, std::max(0, static_cast<int>(face_.groups.size()) - 1)))) return;
  Q_EMIT faceChanged();
  show();
}

void EmojiModel::setTone(int tone) {
  if (!replaced(face_.tone, std::clamp(tone, 0, skinTones))) return;
  store(seams_.defaults, toneKey, face_.tone);
  Q_EMIT faceChanged();
  show();
}

bool EmojiModel::copy(int row) {
  const EmojiRow* chosen = rows_.row(rows_.index(row));
  if (!chosen) return false;
  const QString text = chosen->text;
  const std::string one = text.toStdString();
  std::erase(recent_, one);
  recent_.insert(recent_.begin(), one);
  if (recent_.size() > mostRecent) recent_.pop_back();
  DefaultsArray stored;
  for (const std::string& each : recent_) stored.push_back({each});
  store(seams_.defaults, recentKey, DefaultsValue{std::move(stored)});
  face_.last = text;
  Q_EMIT faceChanged();
  seams_.shell.copyText(text);
  return true;
}

QString EmojiModel::toned(const Emoji& emoji) const {
  return toQString(face_.tone == 0 || emoji.tones.empty() ? emoji.text
                                                          : emoji.tones[static_cast<std::size_t>(face_.tone) - 1]);
}

void EmojiModel::show() {
  if (emoji_.empty()) return;
  std::vector<EmojiRow> rows;
  const auto add = [&](const Emoji& emoji) { rows.push_back({.text = toned(emoji), .name = toQString(emoji.name)}); };
  if (!query_.trimmed().isEmpty()) {
    const auto folding = SearchFolding::forLocale(seams_.calendar().locale());
    for (const Emoji* emoji : emojiMatching(emoji_, query_.toStdString(), folding)) add(*emoji);
  } else if (face_.group == 0) {
    const auto is = [](const std::string& text) {
      return [&text](const Emoji& emoji) { return emoji.text == text || std::ranges::count(emoji.tones, text) > 0; };
    };
    for (const std::string& text : recent_)
      if (const auto found = std::ranges::find_if(emoji_, is(text)); found != emoji_.end())
        rows.push_back({.text = toQString(text), .name = toQString(found->name)});
  } else {
    for (const Emoji& emoji : emoji_)
      if (toQString(emoji.group) == face_.groups.value(face_.group)) add(emoji);
  }
  rows_.setRows(rows);
}

}  // namespace ambrel
