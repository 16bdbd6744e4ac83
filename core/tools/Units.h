#pragma once
// What the unit converter offers. The units are written as the calculator reads them.

#include <span>
#include <string>
#include <string_view>

namespace ambrel {

struct Unit {
  std::string_view id;           // "km^2"
  std::string_view name;         // "Square kilometers"
  std::string_view symbol = {};  // "km²"; empty where it is the id
};

struct UnitCategory {
  std::string_view id;     // "length"
  std::string_view title;  // "Length"
  std::span<const Unit> units;

  const Unit* unit(std::string_view unit) const;
};

std::span<const UnitCategory> unitCategories();
const UnitCategory* unitCategory(std::string_view id);

// What the calculator is asked; `value` may be an expression.
std::string conversion(std::string_view value, const Unit& from, const Unit& to);

}  // namespace ambrel
