#include "ctl/Command.h"

#include <algorithm>
#include <charconv>

namespace ambrel {
namespace {

std::size_t editDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
    }
  }
  return row.back();
}

}  // namespace

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

std::string hint(std::string_view word, const std::vector<std::string>& known, const std::string& list) {
  constexpr std::size_t mostDifferences = 2, longestWord = 40;
  const auto nearest = std::min_element(known.begin(), known.end(), [&](const auto& a, const auto& b) {
    return editDistance(word, a) < editDistance(word, b);
  });
  if (nearest != known.end() && word.size() <= longestWord && editDistance(word, *nearest) <= mostDifferences)
    return "; did you mean '" + *nearest + "'?";
  return "; see " + list;
}

}  // namespace ambrel
