#pragma once
// What a command works with: folders, time, the user's forms, and where its answer goes.

#include <filesystem>
#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

#include "core/agents.h"
#include "core/base/Calendar.h"
#include "core/base/Instant.h"

namespace ambrel {

// The reader of the output is closed: end quietly.
class ClosedPipe {};

// Standard output: gathered, and written when a document is whole.
class Output {
 public:
  explicit Output(int descriptor);

  bool isTerminal() const { return isTerminal_; }
  // Of the terminal; 0 when the output is none.
  std::size_t columns() const;

  Output& operator<<(std::string_view text);
  // Throws ClosedPipe; CommandError when it cannot be written.
  void flush();
  // Throws ClosedPipe as soon as nobody reads any more.
  void wait(Seconds duration);

 private:
  int descriptor_;
  bool isTerminal_;
  std::string pending_;
};

class Context {
 public:
  std::filesystem::path home;
  std::filesystem::path data;
  AgentFolders agentFolders;     // those of the user's own home alone
  std::filesystem::path config;  // the folder of the choices
  std::function<Instant()> now;  // does not move when an instant was given
  Calendar calendar;
  bool json = false;
  bool hasColors = false;
  Output& out;

  // On a line of its own.
  void print(const nlohmann::json& document);
  // A line on standard error that does not end the command.
  void warn(std::string_view text) const;
  // The text in a colour, if there are any: "1" bold, "32" green, ...
  std::string styled(std::string_view style, std::string_view text) const;
};

}  // namespace ambrel
