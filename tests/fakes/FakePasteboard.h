#pragma once
// A pasteboard whose other applications are played by the test.

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Pasteboard.h"

namespace ambrel {

class FakePasteboard : public Pasteboard {
 public:
  std::int64_t changeCount() const override { return count; }
  void setChangeHandler(std::function<void()> handler) override { changed_ = std::move(handler); }
  void setOwnerGoneHandler(std::function<void()> handler) override { ownerGone_ = std::move(handler); }
  void read(ReadingWish wish, std::function<void(PasteboardReading)> done) override {
    ++reads;
    wanted_ = wish.wantsPicture;
    limits = wish.limits;
    done_ = std::move(done);
  }
  std::int64_t write(std::vector<Representation> representations) override {
    written.push_back(std::move(representations));
    types.clear();
    contents = {};
    done_ = nullptr;
    return ++count;
  }

  std::int64_t restore(std::vector<Representation> representations) override {
    ++restored;
    return write(std::move(representations));
  }

  // An application copies; whoever reads gets it when the test lets it answer.
  void put(PasteboardContents what, std::vector<std::string> offered = {"UTF8_STRING"}) {
    contents = std::move(what);
    types = std::move(offered);
    ++count;
    done_ = nullptr;
    if (changed_) changed_();
  }
  void answer() {
    auto done = std::exchange(done_, nullptr);
    if (!done) return;
    PasteboardReading reading{.changeCount = count, .types = types, .contents = {}};
    if (!isPrivate(types)) reading.contents = contents;
    if (!wanted_) reading.contents.picture.reset();
    done(std::move(reading));
  }
  // A copy that is answered at once.
  void copy(std::string text) {
    put({.filePaths = {}, .picture = {}, .text = std::move(text)});
    answer();
  }
  void ownerGoes() {
    contents = {};
    if (ownerGone_) ownerGone_();
  }
  bool isWatched() const { return changed_ != nullptr; }
  bool isAsked() const { return done_ != nullptr; }

  // The plain text of the last write; absent when it had none.
  std::optional<std::string> writtenText() const {
    if (written.empty()) return std::nullopt;
    for (const Representation& one : written.back())
      if (one.type.starts_with("text/plain")) return one.bytes;
    return std::nullopt;
  }

  std::int64_t count = 41;
  PasteboardContents contents;
  std::vector<std::string> types;
  std::vector<std::vector<Representation>> written;
  CaptureLimits limits;  // of the last reading
  int reads = 0;
  int restored = 0;

 private:
  std::function<void()> changed_, ownerGone_;
  std::function<void(PasteboardReading)> done_;
  bool wanted_ = true;
};

}  // namespace ambrel
