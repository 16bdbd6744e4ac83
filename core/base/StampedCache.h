#pragma once
// A cache of what was read from things with a stamp (a date, a size): they are read again only when it differs.

#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

namespace ambrel {

// A stamp has a grain: a change right after a look may leave it as it was. So a value counts only once the stamp was
// the same at two looks, and such a change shows by the second look at the latest. May be used from several threads.
template <typename Stamp, typename Value>
class StampedCache {
 public:
  // `stamp` is taken before `read`, so that what changes meanwhile is seen the next time. A value that `read` does not
  // give is not kept.
  template <typename Read>
  std::optional<Value> get(const std::string& name, const Stamp& stamp, Read read) {
    bool isConfirmed = false;
    {
      const std::lock_guard lock(mutex_);
      if (const auto found = entries_.find(name); found != entries_.end() && found->second.stamp == stamp) {
        if (found->second.isConfirmed) return found->second.value;
        isConfirmed = true;
      }
    }
    std::optional<Value> value = read();
    const std::lock_guard lock(mutex_);
    if (value)
      entries_.insert_or_assign(name, Entry{stamp, isConfirmed, *value});
    else
      entries_.erase(name);
    return value;
  }

  void forget(const std::string& name) {
    const std::lock_guard lock(mutex_);
    entries_.erase(name);
  }

 private:
  struct Entry {
    Stamp stamp;
    bool isConfirmed;
    Value value;
  };
  std::mutex mutex_;
  std::unordered_map<std::string, Entry> entries_;
};

}  // namespace ambrel
