#include "platform/linux/pasteboard/ServedForms.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace ambrel {
namespace {

constexpr std::string_view textType = "text/plain;charset=utf-8";

// In the encoding of STRING; absent when it has no place for a character.
std::optional<std::string> latin1(std::string_view utf8) {
  std::string out;
  out.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    if (byte < 0x80) {
      out += utf8[i];
    } else {
      if ((byte != 0xC2 && byte != 0xC3) || i + 1 == utf8.size()) return std::nullopt;
      out += static_cast<char>((byte & 3) << 6 | (static_cast<unsigned char>(utf8[++i]) & 0x3F));
    }
  }
  return out;
}

}  // namespace

std::vector<ServedForm> servedForms(std::vector<Representation> representations) {
  std::vector<ServedForm> forms;
  const auto add = [&](std::string target, std::string type, std::shared_ptr<const std::string> bytes) {
    if (std::ranges::find(forms, target, &ServedForm::target) == forms.end())
      forms.push_back({std::move(target), std::move(type), std::move(bytes)});
  };
  for (Representation& one : representations) {
    const auto bytes = std::make_shared<const std::string>(std::move(one.bytes));
    add(one.type, one.type, bytes);
    if (one.type != textType) continue;
    add("UTF8_STRING", "UTF8_STRING", bytes);
    add("text/plain", "text/plain", bytes);
    add("TEXT", "UTF8_STRING", bytes);
    if (auto narrow = latin1(*bytes)) add("STRING", "STRING", std::make_shared<const std::string>(std::move(*narrow)));
  }
  return forms;
}

}  // namespace ambrel
