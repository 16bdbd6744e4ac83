#include "ctl/Command.h"

#include <charconv>

namespace ambrel {

std::optional<std::string> Arguments::value(const std::string& name) const {
  const auto found = given_.find(name);
  if (found == given_.end() || found->second.empty()) return std::nullopt;
  return found->second.front();
}

std::vector<std::string> Arguments::values(const std::string& name) const {
  const auto found = given_.find(name);
  return found == given_.end() ? std::vector<std::string>() : found->second;
}

std::optional<double> Arguments::positiveNumber(const std::string& name) const {
  const auto text = value(name);
  if (!text) return std::nullopt;
  double number = 0;
  const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), number);
  if (error != std::errc() || end != text->data() + text->size() || !(number > 0) || number > 1e9)
    throw UsageError(name + " '" + *text + "' is no number above zero");
  return number;
}

}  // namespace ambrel
