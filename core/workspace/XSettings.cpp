#include "core/workspace/XSettings.h"

#include <cstdint>

namespace ambrel {
namespace {

// Reads on from the front; once the bytes have ended everything is 0 or "".
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  bool hasEnded() const { return hasEnded_; }
  void setBigEndian(bool isBig) { isBig_ = isBig; }
  std::string_view take(std::size_t count) {
    if (count > bytes_.size()) {
      hasEnded_ = true;
      bytes_ = {};
      return {};
    }
    const auto taken = bytes_.substr(0, count);
    bytes_.remove_prefix(count);
    return taken;
  }
  std::uint32_t number(std::size_t size) {
    std::uint32_t value = 0;
    const auto taken = take(size);
    for (std::size_t i = 0; i < taken.size(); ++i)
      value = value << 8 | static_cast<unsigned char>(taken[isBig_ ? i : taken.size() - 1 - i]);
    return value;
  }
  // Texts are filled up to four bytes.
  std::string_view text(std::size_t length) {
    const auto taken = take(length);
    take((4 - length % 4) % 4);
    return taken;
  }

 private:
  std::string_view bytes_;
  bool isBig_ = false;
  bool hasEnded_ = false;
};

enum Kind : std::uint32_t { number = 0, text = 1, colour = 2 };

}  // namespace

std::optional<std::string> textSetting(std::string_view bytes, std::string_view name) {
  Reader reader(bytes);
  reader.setBigEndian(reader.number(1) == 1);
  reader.take(3);
  reader.number(4);  // of the last change
  const std::uint32_t count = reader.number(4);
  for (std::uint32_t i = 0; i < count && !reader.hasEnded(); ++i) {
    const std::uint32_t kind = reader.number(1);
    reader.take(1);
    const std::string_view found = reader.text(reader.number(2));
    reader.number(4);
    switch (kind) {
      case Kind::number:
        reader.take(4);
        break;
      case Kind::text: {
        const std::string_view value = reader.text(reader.number(4));
        if (found == name && !reader.hasEnded()) return std::string(value);
        break;
      }
      case Kind::colour:
        reader.take(8);
        break;
      default:
        return std::nullopt;
    }
  }
  return std::nullopt;
}

}  // namespace ambrel
