#include <iostream>
#include <string>

#include "core/base/JSON.h"
#include "core/base/Text.h"
#include "core/buddy/NoticeReplay.h"
#include "ctl/Context.h"
#include "ctl/Table.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

constexpr auto details =
    R"(Lines in, an evaluation or a snooze each:
  {"now":INSTANT,"signals":{...},"policy":{...}}
  {"now":INSTANT,"snooze":{"id":NOTICE-ID,"minutes":15}}
Lines out: the array of notices that are to be shown then. The man page names the fields.)";

void runNotices(const Arguments&, Context& context) {
  NoticeReplay replay(context.calendar);
  std::string line;
  for (std::int64_t number = 1; std::getline(std::cin, line); ++number) {
    if (trimmed(line).empty()) continue;
    const std::string place = "line " + std::to_string(number) + ": ";
    try {
      const NoticeReplay::Answer answer = replay.play(line);
      context.print(answer.notices);
      context.out.flush();
      for (const std::string& remark : answer.remarks) context.warn(printable(place + remark));
    } catch (const DecodingError& error) {
      throw CommandError(printable(place + error.what()));
    }
  }
  if (std::cin.bad()) throw CommandError("cannot read standard input");
}

}  // namespace

Command noticesCommand() {
  return {.name = "notices",
          .summary = "Replays lines of JSON from standard input: signals in, Buddy's notices out",
          .options = {},
          .commands = {},
          .run = runNotices,
          .details = details};
}

}  // namespace ambrel
