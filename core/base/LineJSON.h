#pragma once
// One JSON object of another tool's log, read in place. Every look-up forgives: a missing key and a value
// of another type are both absent.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace ambrel {

class LineObject;

// Keeps its buffers from line to line. A parsed object and every text in it live until the next parse.
class LineParser {
 public:
  LineParser();
  ~LineParser();
  LineParser(LineParser&&) noexcept;
  LineParser& operator=(LineParser&&) noexcept;

  // Absent when the line is no JSON object, is not valid UTF-8 or nests too deep. Half a surrogate pair, as programs
  // leave that cut a text short, reads as U+FFFD; a number that no `double` holds reads as null.
  std::optional<LineObject> parse(std::string_view line);
  // The same without a copy, for a line behind which `padding` more bytes can be read; what they hold does not matter.
  static constexpr std::size_t padding = 64;
  std::optional<LineObject> parsePadded(std::string_view line);

  struct Impl;

 private:
  std::unique_ptr<Impl> impl_;
};

// A view; copy it freely within the life of its parse.
class LineObject {
 public:
  std::optional<std::string_view> text(std::string_view key) const;
  // Any number. Beyond the range of the type: absent.
  std::optional<double> number(std::string_view key) const;
  // Any number, its fraction dropped.
  std::optional<std::int64_t> integer(std::string_view key) const;
  std::optional<bool> boolean(std::string_view key) const;
  std::optional<LineObject> object(std::string_view key) const;
  // The objects among the elements of an array, in order; absent when the value is no array.
  // `visit` returns false to stop.
  bool eachObject(std::string_view key, const std::function<bool(const LineObject&)>& visit) const;

 private:
  friend class LineParser;
  // A simdjson element, kept opaque so that its header stays out of ours.
  struct Element {
    const void* document = nullptr;
    std::size_t index = 0;
  };
  explicit LineObject(Element element) : element_(element) {}
  Element element_;
};

}  // namespace ambrel
