#include "core/calendar/CalendarPieces.h"

#include <algorithm>
#include <utility>

#include "core/base/Text.h"

namespace ambrel {
namespace {

// What is larger is no event: pictures and mails may be inside.
constexpr std::size_t longestLine = 64 << 10, largestComponent = 512 << 10;

class Cutter {
 public:
  CalendarPieces result;

  void read(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    for (std::size_t at = 0; at < text.size();) {
      const auto end = std::min(text.find('\n', at), text.size());
      std::string_view line = text.substr(at, end - at);
      at = end + 1;
      if (line.ends_with('\r')) line.remove_suffix(1);
      take(line);
    }
  }

 private:
  static bool isWanted(const std::string& kind) { return kind == "VEVENT" || kind == "VTODO" || kind == "VTIMEZONE"; }
  static bool isPart(const std::string& kind) { return kind == "STANDARD" || kind == "DAYLIGHT"; }

  void take(std::string_view line) {
    const bool continues = line.starts_with(' ') || line.starts_with('\t');
    if (!continues) {
      const std::string start = asciiLower(line.substr(0, 16));
      isLineLeftOut_ = start.starts_with("attach:") || start.starts_with("attach;");
      lineLength_ = 0;
      if (start.starts_with("begin:")) return begin(upper(trimmed(line.substr(6))));
      if (start.starts_with("end:")) return end(upper(trimmed(line.substr(4))));
      if (start.starts_with("x-wr-calname:") && kind_.empty()) result.name = trimmed(line.substr(13));
    }
    lineLength_ += line.size();
    if (kind_.empty() || !skipped_.empty() || isLineLeftOut_ || lineLength_ > longestLine) return;
    add(line);
  }

  void begin(const std::string& kind) {
    if (isWanted(kind)) {  // one that was not ended is left out
      kind_ = kind;
      text_.clear();
      skipped_.clear();
      isInPart_ = false;
      add("BEGIN:" + kind);
    } else if (!kind_.empty() && skipped_.empty()) {
      if (kind_ == "VTIMEZONE" && isPart(kind) && !std::exchange(isInPart_, true))
        add("BEGIN:" + kind);
      else
        skipped_ = kind;
    }
  }

  void end(const std::string& kind) {
    if (kind_.empty()) return;
    if (kind == kind_) {
      add("END:" + kind);
      if (text_.size() <= largestComponent) result.pieces.push_back({kind_, std::move(text_)});
      kind_.clear();
      text_.clear();
      skipped_.clear();
    } else if (!skipped_.empty()) {
      if (kind == skipped_) skipped_.clear();
    } else if (isInPart_ && isPart(kind)) {
      isInPart_ = false;
      add("END:" + kind);
    }
  }

  void add(std::string_view line) {
    if (text_.size() > largestComponent) return;
    text_ += line;
    text_ += "\r\n";
  }

  static std::string upper(std::string_view text) {
    std::string result(text);
    for (char& c : result)
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return result;
  }

  std::string kind_, text_, skipped_;
  bool isInPart_ = false, isLineLeftOut_ = false;
  std::size_t lineLength_ = 0;
};

}  // namespace

CalendarPieces calendarPieces(std::string_view text) {
  Cutter cutter;
  cutter.read(text);
  return std::move(cutter.result);
}

}  // namespace ambrel
