#include "core/settings.h"

#include "core/base/JSON.h"
#include "core/settings/Choices.h"
#include "ctl/InputFile.h"
#include "ctl/Table.h"
#include "ctl/commands/Commands.h"

namespace ambrel {
namespace {

constexpr std::uint64_t largestChoices = 16 << 20;

// A file with a mistake in it is for a person to mend: a change would leave everything else in it behind.
UserDefaults opened(const Context& context) {
  UserDefaults defaults(context.config / "defaults.json");
  if (defaults.isUnreadable()) throw CommandError(defaults.file().string() + " is no JSON; mend or remove it first");
  return defaults;
}

const SettingRow& rowOf(const Arguments& arguments) {
  const std::string key = arguments.value("KEY").value();
  if (const SettingRow* row = findSetting(key)) return *row;
  std::vector<std::string> known;
  for (const SettingRow* row : allSettings()) known.emplace_back(row->key);
  throw UsageError("unknown setting '" + key + "'" + hint(key, known, "'tilebayctl settings list'"));
}

JSON json(const SettingRow& row, const UserDefaults& defaults) {
  JSON out{{"key", row.key},
           {"value", settingJSON(presentValue(defaults, row))},
           {"default", settingJSON(standardValue(row))},
           {"type", nameOf(row.type)},
           {"page", nameOf(row.page)},
           {"description", row.description}};
  if (row.type == SettingType::integer) out["range"] = {row.least, row.most};
  if (!row.words.empty()) out["range"] = row.words;
  return out;
}

std::string described(const SettingRow& row) {
  std::string range;
  if (row.type == SettingType::integer) range = std::to_string(row.least) + " to " + std::to_string(row.most);
  for (const auto word : row.words) range.append(range.empty() ? "" : ", ").append(word);
  return std::string(row.description) + (range.empty() ? "" : " (" + range + ")");
}

void list(const Arguments&, Context& context) {
  constexpr std::size_t widestValue = 36;
  const UserDefaults defaults = opened(context);
  JSON document = JSON::array();
  std::vector<std::vector<Cell>> rows;
  for (const SettingRow* row : allSettings()) {
    const DefaultsValue value = presentValue(defaults, *row);
    if (context.json)
      document.push_back(json(*row, defaults));
    else
      rows.push_back({{row->key, value == standardValue(*row) ? "" : "1"},
                      {elided(settingText(value), widestValue)},
                      {described(*row), "90"}});
  }
  if (context.json)
    context.print(document);
  else
    context.out << table(rows, 2, context);
}

void get(const Arguments& arguments, Context& context) {
  const SettingRow& row = rowOf(arguments);
  const UserDefaults defaults = opened(context);
  if (context.json)
    context.print(json(row, defaults));
  else
    context.out << settingText(presentValue(defaults, row)) << "\n";
}

void set(const Arguments& arguments, Context& context) {
  const SettingRow& row = rowOf(arguments);
  const std::string text = arguments.value("VALUE").value();
  try {
    DefaultsValue value = parseSetting(row, text);
    UserDefaults defaults = opened(context);
    defaults.set(row.key, std::move(value));
    if (context.json) context.print(json(row, defaults));
  } catch (const SettingError& error) {
    throw UsageError("'" + text + "' is no value of " + row.key + ", which " + error.what());
  }
}

void reset(const Arguments& arguments, Context& context) {
  const SettingRow& row = rowOf(arguments);
  UserDefaults defaults = opened(context);
  defaults.remove(row.key);
  if (context.json) context.print(json(row, defaults));
}

std::filesystem::path profilesOf(const Context& context) { return context.data / "profiles.json"; }

void exportAll(const Arguments&, Context& context) {
  context.out << exportedChoices(opened(context), loadProfiles(profilesOf(context)).profiles);
}

void importAll(const Arguments& arguments, Context& context) {
  const std::string file = arguments.value("FILE").value();
  ImportedChoices choices;
  try {
    choices = importedChoices(inputFile(file, largestChoices));
  } catch (const DecodingError& error) {
    throw CommandError(file + " is " + error.what());
  }
  UserDefaults defaults = opened(context);
  const std::size_t count = choices.values.size();
  defaults.set(std::move(choices.values));
  if (choices.profiles) saveProfiles(profilesOf(context), *choices.profiles);
  if (context.json)
    return context.print(JSON{{"settings", count},
                              {"profiles", choices.profiles ? choices.profiles->size() : 0},
                              {"skipped", choices.skipped}});
  for (const std::string& line : choices.skipped) context.warn("skipped: " + line);
}

Command command(std::string name, std::string summary, std::vector<CommandOption> options,
                std::function<void(const Arguments&, Context&)> run) {
  return {.name = std::move(name),
          .summary = std::move(summary),
          .options = std::move(options),
          .commands = {},
          .run = std::move(run)};
}

}  // namespace

Command settingsCommand() {
  const auto positional = CommandOption::Kind::positional;
  CommandOption key{positional, "KEY", "", "The key of a setting"};
  for (const SettingRow* row : allSettings()) key.choices.emplace_back(row->key);
  const CommandOption value{positional, "VALUE", "", "A value; several words or texts with commas between"};
  return {.name = "settings",
          .summary = "What can be chosen; a running bar follows each change",
          .options = {},
          .commands = {command("list", "Every setting with its value; in bold what differs from the default", {}, list),
                       command("get", "The value of a setting", {key}, get),
                       command("set", "Change a setting", {key, value}, set),
                       command("reset", "Give a setting its default back", {key}, reset),
                       command("export", "Print all settings and profiles as one file", {}, exportAll),
                       command("import", "Take over a file that was exported; what it does not fit is skipped and told",
                               {{positional, "FILE", "", "A file that was exported"}}, importAll)},
          .run = {}};
}

}  // namespace ambrel
