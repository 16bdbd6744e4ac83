#include "app/model/SlotChoices.h"

#include <utility>

#include "app/base/StoredValue.h"

namespace ambrel {
namespace {

const std::optional<DefaultsValue>* chosen(const Profile* profile, std::string_view key) {
  return profile ? slotSetting(*profile, key) : nullptr;
}

// Those that the profile has.
SlotSettings present(const AppModel& model) {
  SlotSettings all;
  for (const std::string_view key : slotSettingKeys())
    if (const auto* value = chosen(model.activeProfile(), key)) all.emplace(key, *value);
  return all;
}

}  // namespace

SlotChoices::SlotChoices(AppModel& model, UserDefaults& defaults, QObject* parent)
    : QObject(parent), model_(model), defaults_(defaults), told_(present(model)) {
  defaults_.keptElsewhere = [this](const std::string& key) -> std::optional<const DefaultsValue*> {
    const auto* value = chosen(model_.activeProfile(), key);
    if (!value) return std::nullopt;
    return *value ? &**value : nullptr;
  };
  defaults_.onChosen = [this](const std::string& key, const DefaultsValue* value) {
    // Who stores it knows of it.
    if (std::exchange(isStoring_, true)) return;
    model_.setSlotSetting(key, value ? std::optional(*value) : std::nullopt);
    shareWhatBelongsTo(key, model_.activeProfile());
    isStoring_ = false;
  };
  defaults_.keeperFor = [this](const std::string& key) { return keeperFor(key); };
  connect(&model_, &AppModel::activeProfileChanged, this, &SlotChoices::compare);
}

SlotChoices::~SlotChoices() {
  defaults_.keptElsewhere = nullptr;
  defaults_.onChosen = nullptr;
  defaults_.keeperFor = nullptr;
}

UserDefaults::Keeper SlotChoices::keeperFor(const std::string& key) {
  const Profile* asking = model_.activeProfile();
  if (!asking || !hasSlotFor(*asking, key)) return nullptr;
  return [this, id = asking->id, key](const DefaultsValue& value) {
    const Profile* profile = model_.profileWith(id);
    if (!profile || !hasSlotFor(*profile, key)) return;
    isStoring_ = true;
    model_.setSlotSetting(id, key, value);
    shareWhatBelongsTo(key, model_.profileWith(id));
    store(defaults_, key, value);
    isStoring_ = false;
  };
}

void SlotChoices::shareWhatBelongsTo(std::string_view key, const Profile* profile) {
  for (const std::string_view other : keysChosenWith(key)) {
    const auto* value = other == key ? nullptr : chosen(profile, other);
    if (!value) continue;
    if (*value)
      store(defaults_, std::string(other), **value);
    else
      removeStored(defaults_, std::string(other));
  }
}

void SlotChoices::compare() {
  const SlotSettings before = std::exchange(told_, present(model_));
  std::set<std::string> keys;
  const auto collect = [&keys](const SlotSettings& some, const SlotSettings& others) {
    for (const auto& [key, value] : some)
      if (const auto found = others.find(key); found == others.end() || found->second != value) keys.insert(key);
  };
  collect(before, told_);
  collect(told_, before);
  if (!keys.empty() && !isStoring_) Q_EMIT changed(keys);
}

}  // namespace ambrel
