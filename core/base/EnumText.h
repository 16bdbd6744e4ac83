#pragma once
// The names of an enumeration's cases, which are what we store and print.
//
//   nameOf(Fruit::apple), fromName<Fruit>("apple"), allCases<Fruit>()
//
// They are read from the compiler, so that each case is written once. An enumeration counts from zero without gaps and
// has at most 128 cases. One whose texts differ from its cases has a table of its own:
//
//   template <> struct EnumText<Fruit> {
//     static constexpr std::array table{std::pair{Fruit::Apple, std::string_view("apple")}, ...};
//   };

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

namespace ambrel {
namespace enum_text {

// The name of the case with this value; empty when there is none. The compiler's text of the function ends in
// "V = ambrel::Fruit::apple]" (clang) or "V = ambrel::Fruit::apple; ...]" (g++), and in "(ambrel::Fruit)7" for no case.
template <auto V>
constexpr std::string_view caseName() {
  std::string_view text = __PRETTY_FUNCTION__;
  text.remove_prefix(text.find("V = ") + 4);
  text = text.substr(0, text.find_first_of(";]"));
  if (text.find(')') != std::string_view::npos) return {};
  return text.substr(text.rfind(':') + 1);
}

template <typename E, std::size_t N = 0>
constexpr std::size_t count() {
  if constexpr (N < 128) {
    if constexpr (!caseName<static_cast<E>(N)>().empty()) return count<E, N + 1>();
  }
  return N;
}

template <typename E, std::size_t... I>
constexpr auto table(std::index_sequence<I...>) {
  return std::array{std::pair{static_cast<E>(I), caseName<static_cast<E>(I)>()}...};
}

}  // namespace enum_text

template <typename E>
struct EnumText {
  static constexpr auto table = enum_text::table<E>(std::make_index_sequence<enum_text::count<E>()>());
};

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
