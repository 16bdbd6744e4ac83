#include "core/review.h"

#include "core/base/JSON.h"
#include "ctl/Context.h"
#include "ctl/InputFile.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

constexpr std::uint64_t largestReview = 64 << 20;

void runReview(const Arguments& arguments, Context& context) {
  const auto file = arguments.value("FILE");
  if (!file) throw UsageError("review needs a FILE; see 'tilebayctl review --help'");
  try {
    const TitledReview document = decodedReview(inputFile(*file, largestReview));
    const std::string text = document.review.markdown(document.title);
    if (context.json)
      context.print(JSON{{"markdown", text}, {"notes", document.review.noteCount()}});
    else
      context.out << text << "\n";
  } catch (const DecodingError& error) {
    throw CommandError(*file + " is no review: " + error.what());
  }
}

}  // namespace

Command reviewCommand() {
  return {.name = "review",
          .summary = "A screen review as Markdown",
          .options = {{CommandOption::Kind::positional, "FILE", "", "The review's document"}},
          .commands = {},
          .run = runReview};
}

}  // namespace ambrel
