#include <algorithm>
#include <iostream>
#include <iterator>

#include "core/base/JSON.h"
#include "core/base/LocalText.h"
#include "core/clipboard.h"
#include "core/clipboard/ClipPreview.h"
#include "core/clipboard/ClipboardFolder.h"
#include "ctl/Table.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

ClipFilter collectionNamed(const std::string& name, const ClipboardLibrary& library) {
  const auto found = std::ranges::find(library.collections, name, &ClipCollection::name);
  if (found == library.collections.end()) throw CommandError("there is no collection named '" + name + "'");
  return {ClipFilter::Collection{found->id}};
}

ClipFilter filterOf(const Arguments& arguments, const ClipboardLibrary& library) {
  const std::string word = arguments.value("--filter").value_or("all");
  constexpr std::string_view kindMark = "kind:", collectionMark = "collection:";
  if (word == "all") return {ClipFilter::All{}};
  if (word == "pinned") return {ClipFilter::Pinned{}};
  if (word.starts_with(kindMark))
    if (const auto kind = fromName<ClipKind>(word.substr(kindMark.size()))) return {ClipFilter::Kind{*kind}};
  if (word.starts_with(collectionMark)) return collectionNamed(word.substr(collectionMark.size()), library);
  throw UsageError("--filter takes all, pinned, kind:KIND (text, link, color, image, file) or collection:NAME, not '" +
                   word + "'");
}

// A secret is not shown by accident; JSON has it.
std::string shownName(const ClipItem& item) {
  const bool isSecret = item.kind == ClipKind::text && item.text && SensitiveText::isSensitive(*item.text);
  return isSecret ? "••••••••" : clipName(item);
}

std::string collectionsText(const ClipItem& item, const ClipboardLibrary& library) {
  std::string text;
  for (const ClipCollection& collection : library.collections)
    if (item.collectionIDs.contains(collection.id)) text += (text.empty() ? "" : ", ") + collection.name;
  return text;
}

void listClips(const Arguments& arguments, Context& context) {
  const ClipboardLibrary library = readLibrary(context.data / "Clipboard");
  const auto folding = SearchFolding::forLocale(context.calendar.locale());
  const std::vector<ClipItem> items = ClipboardLibrary::filtered(library.items, filterOf(arguments, library),
                                                                 arguments.value("--query").value_or(""), folding);
  if (context.json) return context.print(JSON(items));
  if (items.empty()) {
    context.out << (library.items.empty() ? "The clipboard history is empty\n" : "No clip matches\n");
    return;
  }
  const Instant now = context.now();
  std::vector<std::vector<Cell>> rows;
  for (const ClipItem& item : items)
    rows.push_back({{item.isPinned ? "*" : "", "33"},
                    {std::string(nameOf(item.kind)), "90"},
                    {shownName(item), "1"},
                    {collectionsText(item, library)},
                    {item.sourceBundleID.value_or("")},
                    {relativeAge(context.calendar, item.createdAt, now), "90"}});
  context.out << table(rows, 2, context);
}

void classifyInput(const Arguments&, Context& context) {
  const std::string text{std::istreambuf_iterator<char>(std::cin), {}};
  if (std::cin.bad()) throw CommandError("cannot read standard input");
  const std::string_view kind = nameOf(classify(text));
  const bool isSensitive = SensitiveText::isSensitive(text);
  if (context.json) return context.print({{"kind", kind}, {"isSensitive", isSensitive}});
  context.out << kind << (isSensitive ? ", sensitive\n" : "\n");
}

}  // namespace

Command clipsCommand() {
  using enum CommandOption::Kind;
  Command listCommand{
      .name = "list",
      .summary = "The clips of the history, newest first",
      .options = {{value, "--filter", "FILTER", "all, pinned, kind:KIND or collection:NAME [all]"},
                  {value, "--query", "TEXT", "Only clips with this text; case and accents do not count"}},
      .commands = {},
      .run = listClips};
  Command classifyCommand{.name = "classify",
                          .summary = "What kind of clip the text on standard input would be, and whether a secret",
                          .options = {},
                          .commands = {},
                          .run = classifyInput};
  return {.name = "clips",
          .summary = "The clipboard history, and what it makes of a text",
          .options = {},
          .commands = {std::move(listCommand), std::move(classifyCommand)},
          .run = {}};
}

}  // namespace ambrel
