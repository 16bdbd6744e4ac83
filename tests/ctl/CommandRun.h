#pragma once
// The real tilebayctl, run with a chosen environment.

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace ambrel {

// As exec() takes them: with a null pointer at the end.
inline std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// A process of tilebayctl with its output and error as pipes.
class CommandRun {
 public:
  // `input`: the file that it has as standard input.
  CommandRun(std::vector<std::string> arguments, std::vector<std::string> environment,
             const std::string& input = "/dev/null") {
    int out[2], error[2];
    if (pipe2(out, O_CLOEXEC) != 0 || pipe2(error, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    arguments.insert(arguments.begin(), AMBREL_TILEBAYCTL);
    const std::vector<char*> argv = pointersTo(arguments), envp = pointersTo(environment);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, input.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, out[1], 1);
    posix_spawn_file_actions_adddup2(&actions, error[1], 2);
    const int failure = posix_spawn(&child_, AMBREL_TILEBAYCTL, &actions, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    close(out[1]);
    close(error[1]);
    out_ = out[0];
    error_ = error[0];
    if (failure != 0) throw std::runtime_error("cannot start tilebayctl");
  }
  CommandRun(const CommandRun&) = delete;
  CommandRun& operator=(const CommandRun&) = delete;
  ~CommandRun() {
    if (child_ > 0) {
      kill(child_, SIGKILL);
      waitpid(child_, nullptr, 0);
    }
    closeOutput();
    close(error_);
  }

  // The next line of standard output without its newline; waits for it. Throws at the end.
  std::string line() {
    for (;;) {
      if (const auto newline = pending_.find('\n'); newline != std::string::npos) {
        std::string line = pending_.substr(0, newline);
        pending_.erase(0, newline + 1);
        return line;
      }
      if (!readMore(out_, pending_)) throw std::runtime_error("no further line");
    }
  }
  std::string restOfOutput() {
    while (readMore(out_, pending_)) {
    }
    return std::move(pending_);
  }
  std::string restOfError() {
    std::string text;
    while (readMore(error_, text)) {
    }
    return text;
  }
  void closeOutput() {
    if (out_ >= 0) close(out_);
    out_ = -1;
  }
  // The exit status; 128 and the signal for a process that was killed.
  int wait() {
    int status = 0;
    waitpid(child_, &status, 0);
    child_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }

 private:
  // A test that waits for ever fails instead.
  static bool readMore(int descriptor, std::string& text) {
    pollfd input{.fd = descriptor, .events = POLLIN, .revents = 0};
    if (poll(&input, 1, 60000) <= 0) throw std::runtime_error("tilebayctl says nothing");
    char buffer[65536];
    const ssize_t count = read(descriptor, buffer, sizeof buffer);
    if (count <= 0) return false;
    text.append(buffer, static_cast<std::size_t>(count));
    return true;
  }

  pid_t child_ = -1;
  int out_ = -1, error_ = -1;
  std::string pending_;
};

struct CommandResult {
  int status = 0;
  std::string out, error;
  friend bool operator==(const CommandResult&, const CommandResult&) = default;
  friend std::ostream& operator<<(std::ostream& stream, const CommandResult& result) {
    return stream << result.status << ", out: " << result.out << ", error: " << result.error;
  }
};

inline CommandResult runCommand(std::vector<std::string> arguments, std::vector<std::string> environment = {},
                                const std::string& input = "/dev/null") {
  CommandRun run(std::move(arguments), std::move(environment), input);
  CommandResult result;
  result.out = run.restOfOutput();
  result.error = run.restOfError();
  result.status = run.wait();
  return result;
}

// What a command prints that succeeds and complains of nothing.
inline std::string printed(const CommandResult& result) {
  EXPECT_EQ(result, (CommandResult{0, result.out, ""}));
  return result.out;
}

// What it writes to a terminal of so many columns.
inline std::string runOnTerminal(std::vector<std::string> arguments, std::vector<std::string> environment,
                                 unsigned short columns) {
  arguments.insert(arguments.begin(), AMBREL_TILEBAYCTL);
  const std::vector<char*> argv = pointersTo(arguments), envp = pointersTo(environment);
  const winsize size{.ws_row = 24, .ws_col = columns, .ws_xpixel = 0, .ws_ypixel = 0};
  int terminal = -1;
  const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
  if (child < 0) throw std::runtime_error("no terminal");
  if (child == 0) {
    execve(AMBREL_TILEBAYCTL, argv.data(), envp.data());
    _exit(127);
  }
  std::string text;
  char buffer[65536];
  ssize_t count = 0;
  // Reading a terminal whose other side is closed is an error.
  while ((count = read(terminal, buffer, sizeof buffer)) > 0) text.append(buffer, static_cast<std::size_t>(count));
  close(terminal);
  waitpid(child, nullptr, 0);
  std::string lines;
  for (const char c : text)
    if (c != '\r') lines += c;
  return lines;
}

}  // namespace ambrel
