// SPDX-License-Identifier: GPL-2.0-or-later
//
// tilebayctl-calculate LOCALE [--json]: an expression on standard input, its value on standard output, or on standard
// error why it has none. A process of its own, because some expressions take for ever or all memory, and because
// libqalculate asks for this licence of what is linked with it: nothing else of ours may be.

#include <cstdio>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include "core/calculator/Calculation.h"

namespace {

using namespace std::chrono_literals;
constexpr auto patience = 1500ms;
constexpr unsigned deadline = 3;  // seconds

void limitItself() {
  constexpr rlim_t memory = 256u << 20;
  for (const auto& [what, most] : std::initializer_list<std::pair<__rlimit_resource, rlim_t>>{
           {RLIMIT_AS, memory}, {RLIMIT_NPROC, 0}, {RLIMIT_CORE, 0}, {RLIMIT_CPU, deadline}}) {
    const rlimit both{most, most};
    setrlimit(what, &both);
  }
  prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
  // Some work does not look at its time limit; the signal ends the process.
  alarm(deadline);
}

}  // namespace

int main(int count, char** words) {
  std::string text(ambrel::longestExpression + 1, '\0');
  std::cin.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(std::cin.gcount()));
  limitItself();
  ambrel::Calculation done;
  try {
    done = ambrel::calculation(text, count > 1 ? words[1] : "", patience);
  } catch (const std::bad_alloc&) {
    done.fault = "It takes too much memory to work out";
  }
  if (done.fault.empty()) {
    using JSON = nlohmann::json;
    const bool isJSON = count > 2;
    const std::string whole = isJSON ? JSON{{"tool", "calculator"}, {"output", done.result}}.dump(
                                           -1, ' ', false, JSON::error_handler_t::replace)
                                     : done.result;
    std::fprintf(stdout, "%s\n", whole.c_str());
  } else {
    std::fprintf(stderr, "tilebayctl: %s\n", done.fault.c_str());
  }
  std::fflush(nullptr);
  // The library's own thread need not end in order.
  _exit(done.fault.empty() ? 0 : 1);
}
