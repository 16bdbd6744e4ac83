#include "app/tools/UnitConverterModel.h"

#include "app/base/StoredValue.h"

namespace ambrel {
namespace {

const Unit* unitAt(const UnitCategory& category, int index) {
  return index >= 0 && index < static_cast<int>(category.units.size())
             ? &category.units[static_cast<std::size_t>(index)]
             : nullptr;
}

}  // namespace

UnitConverterModel::UnitConverterModel(const ToolSeams& seams, QObject* parent)
    : CalculatedModel(seams, "unitValue", "1", parent) {
  reload();
}

QStringList UnitConverterModel::categories() {
  QStringList titles;
  for (const UnitCategory& category : unitCategories()) titles << toQString(category.title);
  return titles;
}

UnitChoice UnitConverterModel::choice() const {
  UnitChoice choice{.category = static_cast<int>(category_ - unitCategories().data()),
                    .from = static_cast<int>(from_ - category_->units.data()),
                    .to = static_cast<int>(to_ - category_->units.data())};
  for (const Unit& unit : category_->units) choice.units << toQString(unit.name);
  return choice;
}

void UnitConverterModel::reload() {
  const auto stored = [this](const char* key, const char* standard) {
    return seams_.defaults.string(key).value_or(standard);
  };
  const UnitCategory* category = unitCategory(stored("unitCategory", "length"));
  category_ = category ? category : &unitCategories().front();
  const Unit* from = category_->unit(stored("unitFrom", "mi"));
  const Unit* to = category_->unit(stored("unitTo", "km"));
  from_ = from ? from : unitAt(*category_, 0);
  to_ = to ? to : unitAt(*category_, 1);
  CalculatedModel::reload();
  Q_EMIT choiceChanged();
}

void UnitConverterModel::setCategory(int index) {
  if (index < 0 || index >= static_cast<int>(unitCategories().size())) return;
  const UnitCategory& category = unitCategories()[static_cast<std::size_t>(index)];
  if (&category != category_) choose(category, category.units[0], category.units[1]);
}

void UnitConverterModel::setFrom(int index) {
  if (const Unit* unit = unitAt(*category_, index)) choose(*category_, *unit, unit == to_ ? *from_ : *to_);
}

void UnitConverterModel::setTo(int index) {
  if (const Unit* unit = unitAt(*category_, index)) choose(*category_, unit == from_ ? *to_ : *from_, *unit);
}

void UnitConverterModel::choose(const UnitCategory& category, const Unit& from, const Unit& to) {
  category_ = &category;
  from_ = &from;
  to_ = &to;
  const auto text = [](std::string_view id) { return DefaultsValue{std::string(id)}; };
  store(seams_.defaults,
        DefaultsDictionary{{"unitCategory", text(category.id)}, {"unitFrom", text(from.id)}, {"unitTo", text(to.id)}});
  Q_EMIT choiceChanged();
  renew();
}

QString UnitConverterModel::detail(const QString& input) const {
  return input + QLatin1Char(' ') + toQString(from_->symbol.empty() ? from_->id : from_->symbol);
}

}  // namespace ambrel
