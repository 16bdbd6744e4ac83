#pragma once
// One visitor of a variant from a lambda for each case: std::visit(Overloaded{[](const A&) {}, [](const B&) {}}, v).

namespace ambrel {

template <typename... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
// clang 14 does not deduce the arguments of an aggregate by itself.
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

}  // namespace ambrel
