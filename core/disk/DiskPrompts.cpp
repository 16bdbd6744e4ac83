#include "core/disk/DiskPrompts.h"

#include <fmt/format.h>

#include "core/base/LocalText.h"
#include "core/base/PlatformWords.h"
#include "core/base/Text.h"
#include "core/disk/DiskAdvice.h"

namespace ambrel::DiskPrompts {
namespace {

constexpr std::size_t namedAtMost = 8;

// A name from the disk on one line of its own, whatever it holds.
std::string oneLine(std::string_view name) {
  std::string text = repairedUTF8(name);
  for (char& c : text)
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) c = ' ';
  return text;
}

}  // namespace

std::string_view systemText() {
  return "You are Buddy, the helper in Disk Doctor, a disk cleanup tool in Tilebay for {system}.\n"
         "You only get metadata: names, paths, sizes, dates and the app's own rules. You never see file contents.\n"
         "Answer in plain words, in two or three short sentences, without lists or markdown.\n"
         "You never delete, move or select files, and you never say that you will. The user decides and confirms.\n"
         "When you are not sure, tell the user to check the item in {fileManager} first."_local;
}

std::string summaryPrompt(const DiskItem& root, const std::vector<DiskFinding>& findings, const Calendar& calendar) {
  std::string text = "Write one short sentence, at most 15 words, about what this disk scan can free.\n";
  text += fmt::format("Scanned {} files.\nLargest:", root.fileCount());
  std::size_t named = 0;
  for (const DiskItem& child : root.children())
    if (child.kind() != DiskItem::Kind::smallItems && named++ < namedAtMost)
      text += fmt::format("\n{}, {}", oneLine(child.name()), fileSize(calendar, child.size()));
  for (const DiskFinding& finding : findings)
    text += fmt::format("\n{}, risk {}{}", DiskAdvice::findingLine(finding, calendar), label(finding.risk()),
                        isMovable(finding.rule) ? "" : ", shown only");
  return text;
}

std::string findingPrompt(const DiskFinding& finding, const Calendar& calendar) {
  std::string text = "Explain to a non-technical user what these items are and whether removing them is safe.\n";
  for (std::size_t i = 0; i < finding.items.size() && i < namedAtMost; ++i)
    text += oneLine(finding.items[i].title) + "\n";
  return text + DiskAdvice::findingLine(finding, calendar);
}

std::string itemPrompt(const DiskItem& item, const std::string& question, const std::string& verdict, Instant now,
                       const Calendar& calendar) {
  std::string text = fmt::format("Question: {}\nThe item: {}, {}\nPath: {}\nKind: {}, {} files\nLast changed: {}",
                                 question, oneLine(item.name()), fileSize(calendar, item.size()), oneLine(item.url()),
                                 nameOf(item.kind()), item.fileCount(), relativeAge(calendar, item.modified(), now));
  if (const auto accessed = item.accessed())
    text += fmt::format("\nLast opened: {}", relativeAge(calendar, *accessed, now));
  return text + "\nThe app's rule-based view: " + verdict;
}

}  // namespace ambrel::DiskPrompts
