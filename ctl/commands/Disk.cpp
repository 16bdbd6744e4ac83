#include "core/disk.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <mutex>
#include <unistd.h>

#include "core/base/JSON.h"
#include "core/base/LocalText.h"
#include "core/base/Text.h"
#include "ctl/Table.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

constexpr std::size_t shownOfEach = 10;

template <typename Number>
std::optional<Number> numberIn(std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::int64_t wholeNumber(const Arguments& arguments, const std::string& option, std::int64_t fallback) {
  const auto text = arguments.value(option);
  if (!text) return fallback;
  const auto number = numberIn<std::int64_t>(*text);
  if (!number || *number < 0) throw UsageError(option + " '" + *text + "' is no whole number from zero up");
  return *number;
}

// "installerDays=7"
void set(DiskAnalyzer& analyzer, const std::string& assignment) {
  static constexpr std::array days{std::pair{"staleProjectDays", &DiskAnalyzer::staleProjectDays},
                                   std::pair{"installerDays", &DiskAnalyzer::installerDays},
                                   std::pair{"largeFileDays", &DiskAnalyzer::largeFileDays},
                                   std::pair{"archiveDays", &DiskAnalyzer::archiveDays},
                                   std::pair{"runtimeDays", &DiskAnalyzer::runtimeDays},
                                   std::pair{"screenshotDays", &DiskAnalyzer::screenshotDays}};
  static constexpr std::array bytes{std::pair{"largeFileBytes", &DiskAnalyzer::largeFileBytes},
                                    std::pair{"duplicateMinBytes", &DiskAnalyzer::duplicateMinBytes},
                                    std::pair{"hashWindow", &DiskAnalyzer::hashWindow}};
  const auto equals = assignment.find('=');
  const std::string name = assignment.substr(0, equals);
  const std::string_view value =
      equals == std::string::npos ? std::string_view() : std::string_view(assignment).substr(equals + 1);
  const auto assign = [&](auto& field) {
    const auto number = numberIn<std::remove_reference_t<decltype(field)>>(value);
    if (!number || !(*number >= 0 && *number <= 1e15))
      throw UsageError("--set '" + assignment + "' gives no number from zero up");
    field = *number;
  };
  std::string known;
  for (const auto& [field, member] : days) {
    if (name == field) return assign(analyzer.*member);
    known += std::string(" ") + field;
  }
  for (const auto& [field, member] : bytes) {
    if (name == field) return assign(analyzer.*member);
    known += std::string(" ") + field;
  }
  throw UsageError("--set knows no '" + name + "'; it is one of" + known);
}

JSON treeJSON(const DiskItem& item, std::int64_t depth) {
  JSON json{{"name", item.name()},
            {"path", item.url()},
            {"kind", nameOf(item.kind())},
            {"size", item.size()},
            {"fileCount", item.fileCount()}};
  if (item.modified() != distantPast) json["modified"] = item.modified();
  if (const auto accessed = item.accessed()) json["accessed"] = *accessed;
  if (depth == 0 && !item.children().empty()) return json;
  JSON& children = json["children"] = JSON::array();
  for (const DiskItem& child : item.children()) children.push_back(treeJSON(child, depth - 1));
  return json;
}

JSON findingJSON(const DiskFinding& finding) {
  JSON items = JSON::array();
  for (const CleanupItem& item : finding.items) {
    JSON json{{"path", item.url},
              {"title", item.title},
              {"bytes", item.bytes},
              {"contentsOnly", item.contentsOnly},
              {"keeping", item.keeping}};
    if (item.modified) json["modified"] = *item.modified;
    items.push_back(std::move(json));
  }
  return {{"rule", nameOf(finding.rule)},
          {"reason", finding.reason},
          {"bytes", finding.bytes()},
          {"items", std::move(items)}};
}

// One line on the terminal that is written over again and again, and wiped at the end.
class ProgressLine {
 public:
  explicit ProgressLine(const Context& context) : context_(context), isShown_(isatty(STDERR_FILENO) == 1) {}
  ProgressLine(const ProgressLine&) = delete;
  ~ProgressLine() {
    if (isShown_) write("");
  }
  void show(const DiskScanProgress& progress) {
    if (!isShown_ || progress.files % 5000 != 0) return;
    write(compactCount(context_.calendar, progress.files) + " files, " + fileSize(context_.calendar, progress.bytes));
  }
  void show(const CompareProgress& progress) {
    if (isShown_) write("comparing files, " + fileSize(context_.calendar, progress.bytes));
  }

 private:
  void write(const std::string& text) {
    const std::string line = "\r\x1b[K" + text;
    const std::scoped_lock hold(lock_);
    [[maybe_unused]] const auto ignored = ::write(STDERR_FILENO, line.data(), line.size());
  }
  const Context& context_;
  const bool isShown_;
  std::mutex lock_;
};

void addTree(const DiskItem& item, std::int64_t depth, std::size_t level, std::vector<std::vector<Cell>>& rows,
             const Context& context) {
  rows.push_back(
      {{fileSize(context.calendar, item.size())},
       {std::string(2 * level, ' ') + repairedUTF8(item.name()), item.kind() == DiskItem::Kind::smallItems ? "90"
                                                                 : item.hasChildren()                      ? "1"
                                                                                                           : ""}});
  if (depth == 0) return;
  const auto children = item.children();
  for (std::size_t i = 0; i < children.size() && i < shownOfEach; ++i)
    addTree(children[i], depth - 1, level + 1, rows, context);
  if (children.size() > shownOfEach)
    rows.push_back(
        {{}, {std::string(2 * level + 2, ' ') + std::to_string(children.size() - shownOfEach) + " more", "90"}});
}

void printForPeople(const DiskScanResult& result, const std::vector<DiskFinding>& findings, std::int64_t depth,
                    Context& context) {
  context.out << context.styled("1", DiskAdvice::headline(findings)) << "\n"
              << printable(DiskAdvice::summary(*result.root, findings, context.calendar)) << "\n\n";
  std::vector<std::vector<Cell>> rows;
  addTree(*result.root, depth, 0, rows, context);
  context.out << table(rows, 1, context);
  for (const DiskFinding& finding : findings) {
    context.out << "\n"
                << context.styled("1", DiskAdvice::findingLine(finding, context.calendar)) << "\n"
                << finding.reason << "\n";
    std::vector<std::vector<Cell>> items;
    for (std::size_t i = 0; i < finding.items.size() && i < shownOfEach; ++i)
      items.push_back({{"  " + fileSize(context.calendar, finding.items[i].bytes)},
                       {finding.items[i].title},
                       {repairedUTF8(finding.items[i].url), "90"}});
    context.out << table(items, 2, context);
    for (std::size_t i = 0; i < finding.items.size() && i < shownOfEach; ++i)
      if (finding.items[i].ownRisk)
        context.out << printable("  " + finding.items[i].title + ": " + finding.items[i].detail) << "\n";
    if (finding.items.size() > shownOfEach)
      context.out << "  " << std::to_string(finding.items.size() - shownOfEach) << " more\n";
  }
  if (!result.skipped.empty())
    context.out << "\n" << std::to_string(result.skipped.size()) << " folders could not be read.\n";
}

void runDisk(const Arguments& arguments, Context& context) {
  DiskAnalyzer analyzer;
  for (const std::string& assignment : arguments.values("--set")) set(analyzer, assignment);
  const DiskScanner scanner{.minItemSize = wholeNumber(arguments, "--min-item-size", 1'000'000)};
  const std::int64_t depth = std::min<std::int64_t>(wholeNumber(arguments, "--depth", 2), 200);

  // Links in the two paths are resolved, so that the rules find the home's folders in the tree.
  std::error_code error;
  const std::string root = std::filesystem::canonical(*arguments.value("PATH"), error);
  if (error) throw FileError("cannot read", *arguments.value("PATH"), error.value());
  const std::string home = std::filesystem::weakly_canonical(std::filesystem::absolute(context.home), error);

  DiskScanResult result;
  std::vector<DiskFinding> findings;
  {
    ProgressLine line(context);
    result = scanner.scan(root, [&](const DiskScanProgress& progress) { line.show(progress); });
    const AnalysisControl control{.stop = {},
                                  .progress = [&](const CompareProgress& progress) { line.show(progress); }};
    findings = analyzer.analyze(*result.root, home, {}, context.now(), context.calendar, control);
  }
  if (!context.json) return printForPeople(result, findings, depth, context);
  JSON document{{"root", treeJSON(*result.root, depth)},
                {"skipped", result.skipped},
                {"findings", JSON::array()},
                {"headline", DiskAdvice::headline(findings)},
                {"summary", DiskAdvice::summary(*result.root, findings, context.calendar)}};
  for (const DiskFinding& finding : findings) document["findings"].push_back(findingJSON(finding));
  context.print(document);
}

}  // namespace

Command diskCommand() {
  using enum CommandOption::Kind;
  return {.name = "disk",
          .summary = "What takes space in a folder, and what of it could go",
          .options = {{positional, "PATH", "", "The folder to scan"},
                      {value, "--min-item-size", "BYTES", "Smaller items fold into one for each folder [1000000]"},
                      {values, "--set", "NAME=VALUE", "A threshold of the rules; may be given several times"},
                      {value, "--depth", "N", "Levels of the tree that are printed [2]"}},
          .commands = {},
          .run = runDisk};
}

}  // namespace ambrel
