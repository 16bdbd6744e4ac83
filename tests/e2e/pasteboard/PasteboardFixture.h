#pragma once
// A pasteboard on the test's desktop, with a main thread that the test turns by hand.

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>

#include "tests/e2e/pasteboard/SelectionClients.h"

namespace ambrel {

// What is posted waits until the test waits for something.
class MainThread {
 public:
  void post(std::function<void()> task) {
    const std::scoped_lock lock(mutex_);
    tasks_.push_back(std::move(task));
    changed_.notify_all();
  }

  // Runs what is posted until the condition holds; false when that takes too long.
  bool runUntil(const std::function<bool()>& isDone, std::chrono::milliseconds atMost = std::chrono::seconds(5)) {
    const auto end = std::chrono::steady_clock::now() + atMost;
    std::unique_lock lock(mutex_);
    while (!isDone()) {
      if (tasks_.empty() && changed_.wait_until(lock, end) == std::cv_status::timeout) return false;
      while (!tasks_.empty()) {
        const auto task = std::move(tasks_.front());
        tasks_.pop_front();
        lock.unlock();
        task();
        lock.lock();
      }
    }
    return true;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::function<void()>> tasks_;
};

class PasteboardTest : public testing::Test {
 protected:
  void SetUp() override {
    pasteboard = openTestedPasteboard([this](auto task) { main.post(std::move(task)); }, patience);
    ASSERT_TRUE(pasteboard);
    pasteboard->setChangeHandler([this] { ++changes; });
    pasteboard->setOwnerGoneHandler([this] { ++ownersGone; });
  }

  // The application copies, and the change is noticed.
  void copy(OwnerClient& owner) {
    const auto before = pasteboard->changeCount();
    owner.copy();
    ASSERT_TRUE(main.runUntil([&] { return pasteboard->changeCount() != before; }));
  }

  // Asks again and again, without letting the main thread run.
  static bool eventually(const std::function<bool()>& isTrue) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (!isTrue())
      if (std::chrono::steady_clock::now() > end) return false;
    return true;
  }

  PasteboardReading read(ReadingWish wish = {}) {
    std::optional<PasteboardReading> reading;
    pasteboard->read(wish, [&](PasteboardReading one) { reading = std::move(one); });
    EXPECT_TRUE(main.runUntil([&] { return reading.has_value(); }));
    return reading.value_or(PasteboardReading{});
  }

  // After whatever came before, an ordinary copy is read as ever.
  void expectWorkingStill() {
    OwnerClient ordinary({{"UTF8_STRING", {.bytes = "still here"}}});
    copy(ordinary);
    EXPECT_EQ(read().contents.text, "still here");
  }

  static std::string pasted(RequestorClient& client, const std::string& target) {
    const auto answer = client.paste(target);
    return answer ? answer->bytes : "(refused)";
  }

  MainThread main;
  SelectionPatience patience{.targets = std::chrono::milliseconds(300),
                             .data = std::chrono::milliseconds(300),
                             .again = std::chrono::milliseconds(300),
                             .piece = std::chrono::milliseconds(300),
                             .excess = std::chrono::milliseconds(1000),
                             .whole = std::chrono::milliseconds(3000)};
  std::unique_ptr<Pasteboard> pasteboard;
  int changes = 0, ownersGone = 0;
};

inline Offer whole(std::string bytes) { return {.manner = Manner::whole, .bytes = std::move(bytes)}; }

// Text in which a lost, doubled or moved piece shows.
inline std::string numberedText(std::size_t size) {
  std::string text;
  for (std::size_t i = 0; text.size() < size; ++i) text += std::to_string(i) + "\n";
  text.resize(size);
  return text;
}

}  // namespace ambrel
