#include "app/model/GlobalKeys.h"

#include <algorithm>
#include <utility>

#include "app/base/Log.h"
#include "app/base/Replaced.h"
#include "app/base/StoredValue.h"
#include "core/settings/KeyBinding.h"

namespace ambrel {
namespace {

KeyCombination ofSetting(const KeyCombination& chosen, char digit) {
  KeyCombination keys = chosen;
  if (keys.key != 0 && digit != 0) keys.key = digit;
  return keys;
}

bool isModifier(int key) {
  constexpr int modifiers[] = {Qt::Key_Shift,   Qt::Key_Control, Qt::Key_Meta,    Qt::Key_Alt,      Qt::Key_AltGr,
                               Qt::Key_Super_L, Qt::Key_Super_R, Qt::Key_Hyper_L, Qt::Key_CapsLock, Qt::Key_NumLock};
  return std::ranges::find(modifiers, key) != std::end(modifiers);
}

KeyCombination pressedKeys(int key, Qt::KeyboardModifiers held) {
  KeyCombination keys{.command = held.testFlag(Qt::MetaModifier),
                      .option = held.testFlag(Qt::AltModifier),
                      .control = held.testFlag(Qt::ControlModifier),
                      .shift = held.testFlag(Qt::ShiftModifier)};
  if (key >= Qt::Key_A && key <= Qt::Key_Z) keys.key = static_cast<char>('a' + key - Qt::Key_A);
  if (key >= Qt::Key_0 && key <= Qt::Key_9) keys.key = static_cast<char>('0' + key - Qt::Key_0);
  return keys;
}

// "--copy-pinned 1" is "copy-pinned-1".
std::string idOf(const AreaKey& key) {
  std::string id = key.option.substr(std::min(key.option.find_first_not_of('-'), key.option.size()));
  std::ranges::replace(id, ' ', '-');
  return id;
}

}  // namespace

GlobalKeys::GlobalKeys(HotKeys& hotKeys, AppSettings& settings, QObject* parent)
    : QObject(parent), hotKeys_(hotKeys), settings_(settings) {
  connect(&settings, &AppSettings::changed, this, &GlobalKeys::follow);
  if (KeyKeeper* keeper = hotKeys_.keeper()) keeper->setChangeHandler([this] { desktopAnswered(); });
}

GlobalKeys::~GlobalKeys() {
  if (KeyKeeper* keeper = hotKeys_.keeper()) keeper->setChangeHandler({});
}

void GlobalKeys::add(std::vector<AreaKey> keys) {
  release();
  asked_.clear();
  std::ranges::move(keys, std::back_inserter(keys_));
  follow();
}

std::vector<GlobalKeys::Wanted> GlobalKeys::wanted() const {
  std::vector<Wanted> all;
  if (recorded_) return all;
  for (const AreaKey& key : keys_)
    if (const KeyCombination combination = ofSetting(settings_.read(*key.setting), key.digit); combination.key != 0)
      all.push_back({combination, &key});
  return all;
}

void GlobalKeys::release() {
  for (const Wanted& held : std::exchange(registered_, {})) hotKeys_.remove(held.combination);
}

void GlobalKeys::beginAsking() {
  mayAsk_ = true;
  askDesktop();
}

void GlobalKeys::askDesktop() {
  KeyKeeper* keeper = hotKeys_.keeper();
  if (!keeper || !mayAsk_ || !replaced(isAsking_, settings_.read(setting::keysAreAsked))) return;
  std::vector<OfferedKey> offered;
  if (isAsking_)
    for (const AreaKey& key : keys_)
      offered.push_back({idOf(key), key.description.empty() ? std::string(key.setting->description) : key.description,
                         ofSetting(settings_.read(*key.setting), key.digit), key.action});
  keeper->ask(std::move(offered));
}

void GlobalKeys::desktopAnswered() {
  // The next start must not open the same window.
  if (answer() == KeyKeeper::Answer::refused) settings_.set(setting::keysAreAsked, false);
  update();
}

void GlobalKeys::askAgain() { settings_.set(setting::keysAreAsked, true); }

void GlobalKeys::configure() {
  if (KeyKeeper* keeper = hotKeys_.keeper()) keeper->configure();
}

KeyKeeper::Answer GlobalKeys::answer() const {
  const KeyKeeper* keeper = hotKeys_.keeper();
  return keeper ? keeper->answer() : KeyKeeper::Answer::none;
}

// A desktop that tells no key of all has them bound by hand, by the same lines as any other.
bool GlobalKeys::areGiven() const {
  return answer() == KeyKeeper::Answer::given && std::ranges::any_of(keys_, [this](const AreaKey& key) {
           return !hotKeys_.keeper()->trigger(idOf(key)).empty();
         });
}

bool GlobalKeys::canAsk() const { return hotKeys_.keeper() && mayAsk_ && !isAsking_; }

bool GlobalKeys::canConfigure() const {
  const KeyKeeper* keeper = hotKeys_.keeper();
  return keeper && keeper->canConfigure();
}

void GlobalKeys::follow() {
  askDesktop();
  if (!replaced(asked_, wanted())) return update();
  release();
  taken_.clear();
  for (const auto& [combination, key] : asked_) {
    const auto own = std::ranges::find(registered_, combination, &Wanted::combination);
    if (own != registered_.end()) {
      taken_[key->setting] = tr("The same key as: %1").arg(toQString(own->key->setting->description));
    } else if (hotKeys_.add(combination, key->action) == HotKeyResult::taken) {
      taken_[key->setting] = tr("Another program has this key");
      logLine(std::string(key->setting->key) + ": " + keysText(combination) + " is taken by another program");
    } else {
      registered_.push_back({combination, key});
    }
  }
  update();
}

QString GlobalKeys::advice() const {
  const KeyKeeper* keeper = hotKeys_.keeper();
  if (!keeper) return tr("They work in every program. Click one and press another.");
  if (answer() == KeyKeeper::Answer::waiting) return tr("The desktop asks you which of these keys Tilebay may have.");
  if (areGiven())
    return tr("They work in every program. The desktop has bound them; they are changed in its settings.");
  return tr("This desktop keeps its keys to itself. Each line below is for %1.")
      .arg(toQString(placeOfKeys(keeper->desktop())));
}

QString GlobalKeys::welcomeAdvice() const {
  const KeyKeeper* keeper = hotKeys_.keeper();
  if (!keeper) return tr("They work in every program. Others can be chosen in Settings, General.");
  return tr("This desktop keeps its keys to itself. It may ask you which of them Tilebay gets; where it does not, "
            "Settings, General has lines for %1, which bind these and others.")
      .arg(toQString(placeOfKeys(keeper->desktop())));
}

void GlobalKeys::update() {
  const bool isGiven = areGiven();
  std::vector<KeyRow> rows;
  for (const AreaKey& key : keys_) {
    // The keys of one setting follow one another.
    if (!rows.empty() && rows.back().key == QLatin1String(key.setting->key)) continue;
    const auto taken = taken_.find(key.setting);
    KeyRow row;
    row.key = QString::fromLatin1(key.setting->key);
    row.title = toQString(key.setting->description);
    row.text = QString::fromStdString(keysText(settings_.read(*key.setting)));
    if (const KeyKeeper* keeper = hotKeys_.keeper()) {
      row.isGiven = isGiven;
      if (isGiven)
        row.text = toQString(keeper->trigger(idOf(key)));
      else
        row.binding = toQString(keyBinding(keeper->desktop(), settings_.read(*key.setting), "tilebay " + key.option));
    }
    row.isRecording = recorded_ == key.setting;
    row.problem = row.isRecording ? problem_ : taken == taken_.end() ? QString() : taken->second;
    row.isStandard = settings_.value(*key.setting) == standardValue(*key.setting);
    rows.push_back(std::move(row));
  }
  rows_.setRows(rows);
  Q_EMIT changed();
}

void GlobalKeys::record(const QString& key) {
  const auto found =
      std::ranges::find(keys_, key, [](const AreaKey& each) { return QLatin1String(each.setting->key); });
  recorded_ = found == keys_.end() ? nullptr : found->setting;
  problem_.clear();
  follow();
}

void GlobalKeys::stopRecording() {
  if (!std::exchange(recorded_, nullptr)) return;
  problem_.clear();
  follow();
}

bool GlobalKeys::press(int key, int modifiers) {
  if (!recorded_ || key == Qt::Key_Tab || key == Qt::Key_Backtab) return false;
  const auto held = Qt::KeyboardModifiers(modifiers & ~Qt::KeypadModifier);
  const SettingRow& row = *recorded_;
  if (isModifier(key)) return true;
  if (held == Qt::NoModifier && key == Qt::Key_Escape) {
    stopRecording();
    return true;
  }
  if (held == Qt::NoModifier && (key == Qt::Key_Backspace || key == Qt::Key_Delete)) {
    stopRecording();
    settings_.change(row, {std::string()});
    return true;
  }
  KeyCombination keys = pressedKeys(key, held);
  const bool hasDigits =
      std::ranges::any_of(keys_, [&](const AreaKey& each) { return each.setting == &row && each.digit; });
  if (hasDigits && keys.key != 0) keys.key = '1';
  problem_ = keys.isComplete() ? conflict(row, keys) : tr("Hold Super, Alt or Control and press a letter or a digit");
  if (!problem_.isEmpty()) {
    update();
    return true;
  }
  recorded_ = nullptr;
  settings_.change(row, {keysText(keys)});
  follow();
  return true;
}

QString GlobalKeys::conflict(const SettingRow& row, const KeyCombination& combination) {
  std::vector<KeyCombination> asked;
  for (const AreaKey& key : keys_)
    if (key.setting == &row) asked.push_back(ofSetting(combination, key.digit));
  for (const AreaKey& key : keys_) {
    const KeyCombination theirs = ofSetting(settings_.read(*key.setting), key.digit);
    if (key.setting != &row && theirs.key != 0 && std::ranges::find(asked, theirs) != asked.end())
      return tr("%1 is taken: %2").arg(QString::fromStdString(keysText(theirs)), toQString(key.setting->description));
  }
  // None of ours is registered while one is recorded.
  for (const KeyCombination& each : asked) {
    const HotKeyResult result = hotKeys_.add(each, [] {});
    if (result == HotKeyResult::taken) return tr("Another program has %1").arg(QString::fromStdString(keysText(each)));
    hotKeys_.remove(each);
  }
  return {};
}

void GlobalKeys::reset(const QString& key) {
  if (const SettingRow* row = findSetting(key.toStdString())) settings_.change(*row, standardValue(*row));
}

}  // namespace ambrel
