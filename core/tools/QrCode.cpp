#include <cstring>
#include <memory>
#include <qrencode.h>

#include "core/tools/Tools.h"

namespace ambrel {

QrCode qrCode(std::string_view choice, std::string_view text) {
  constexpr std::size_t mostBytes = 2953;  // of the largest code with the least correction
  if (text.empty() || text.size() > mostBytes) return {};
  const QRecLevel level = choice == "low"        ? QR_ECLEVEL_L
                          : choice == "quartile" ? QR_ECLEVEL_Q
                          : choice == "high"     ? QR_ECLEVEL_H
                                                 : QR_ECLEVEL_M;
  const std::unique_ptr<QRcode, decltype(&QRcode_free)> code(
      QRcode_encodeData(static_cast<int>(text.size()), reinterpret_cast<const unsigned char*>(text.data()), 0, level),
      QRcode_free);
  if (!code) return {};
  QrCode result{.size = code->width, .isDark = {}};
  const int count = code->width * code->width;
  result.isDark.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) result.isDark.push_back(code->data[i] & 1);
  return result;
}

namespace tools {

// Two rows of modules in a line of blocks, in the light colour of a dark terminal, within the quiet zone.
ToolOutcome qrText(const ToolCall& call) {
  if (call.input.empty()) return {{}, "There is no text to encode"};
  const QrCode code = qrCode(call.choice, call.input);
  if (code.size == 0) return {{}, "The text is too long for a QR code with this error correction"};
  constexpr int quiet = 4;
  const auto isLight = [&](int row, int column) {
    const bool isInside = row >= 0 && column >= 0 && row < code.size && column < code.size;
    return row < code.size + quiet && !(isInside && code.isDark[static_cast<std::size_t>(row * code.size + column)]);
  };
  std::string text;
  for (int row = -quiet; row < code.size + quiet; row += 2) {
    if (row > -quiet) text += '\n';
    for (int column = -quiet; column < code.size + quiet; ++column) {
      const bool isUpper = isLight(row, column), isLower = isLight(row + 1, column);
      text += isUpper && isLower ? "█" : isUpper ? "▀" : isLower ? "▄" : " ";
    }
  }
  return {std::move(text), {}};
}

ToolGlance qrGlance(const ToolCall& call, const ToolOutcome& outcome) {
  if (!outcome.fault.empty())
    return {"Too long", counted(call, static_cast<std::int64_t>(call.input.size()), "byte", "bytes"), {}};
  const QrCode code = qrCode(call.choice, call.input);
  return {std::to_string(code.size) + " × " + std::to_string(code.size),
          counted(call, static_cast<std::int64_t>(call.input.size()), "byte", "bytes"),
          {}};
}

}  // namespace tools
}  // namespace ambrel
