#pragma once
// One table of case and name for each enumeration that reaches text; it serves both directions.
//
//   template <> struct EnumText<Fruit> {
//     static constexpr std::array table{std::pair{Fruit::apple, std::string_view("apple")}, ...};
//   };
//   nameOf(Fruit::apple), fromName<Fruit>("apple"), allCases<Fruit>()

#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace ambrel {

template <typename E>
struct EnumText;

// The name of a case; "" for a value that is in no table.
template <typename E>
constexpr std::string_view nameOf(E value) {
  for (const auto& [entry, name] : EnumText<E>::table)
    if (entry == value) return name;
  return {};
}

template <typename E>
constexpr std::optional<E> fromName(std::string_view name) {
  for (const auto& [entry, text] : EnumText<E>::table)
    if (text == name) return entry;
  return std::nullopt;
}

// All cases in declaration order.
template <typename E>
constexpr auto allCases() {
  constexpr auto& table = EnumText<E>::table;
  std::array<E, table.size()> cases{};
  for (std::size_t i = 0; i < table.size(); ++i) cases[i] = table[i].first;
  return cases;
}

}  // namespace ambrel
