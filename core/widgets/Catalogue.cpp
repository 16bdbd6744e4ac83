#include <map>
#include <set>

#include "core/base/PlatformWords.h"
#include "core/base/Text.h"
#include "core/widgets.h"

namespace ambrel {
namespace {

struct Entry {
  DockWidget widget;
  std::string_view title, symbol;
  WidgetGroup group;
  TileSize size, smallest;
  std::optional<ProFeature> feature;
  std::string_view description;
  std::string_view shortTitle{};  // empty: the title is short enough
};

using enum TileSize;

// clang-format off
constexpr std::array catalogue{
    Entry{DockWidget::buddy, "Dock Buddy", "face.smiling", WidgetGroup::productivity, small, small, ProFeature::proactiveBuddy,
          "A little character that watches your work and tells you what matters. Click for its notes and Ask Buddy",
          "Buddy"},
    Entry{DockWidget::agents, "AI Agents", "sparkles", WidgetGroup::developer, large, medium, ProFeature::agentTracking,
          "Live Claude Code, Codex, Cursor and Antigravity sessions"},
    Entry{DockWidget::claudeUsage, "Claude Usage", "sparkle", WidgetGroup::developer, extraLarge, medium, ProFeature::agentTracking,
          "Claude session and weekly limits, and when they reset", "Claude"},
    Entry{DockWidget::codexLimits, "Codex Limits", "chevron.left.forwardslash.chevron.right", WidgetGroup::developer, extraLarge, medium, ProFeature::agentTracking,
          "Codex 5-hour and weekly limits, as OpenAI reports them", "Codex"},
    Entry{DockWidget::clipboard, "Clipboard", "doc.on.clipboard", WidgetGroup::productivity, large, medium, std::nullopt,
          "Clipboard history ({shelfKeys})"_local},
    Entry{DockWidget::downloads, "Downloads", "arrow.down.circle", WidgetGroup::productivity, large, medium, std::nullopt,
          "The newest files in Downloads. Click one to open it"},
    Entry{DockWidget::screenshot, "Screenshot", "camera.viewfinder", WidgetGroup::productivity, small, small, std::nullopt,
          "Opens the Screenshot tool", "Capture"},
    Entry{DockWidget::screenNotes, "Screen Notes", "mappin.and.ellipse", WidgetGroup::productivity, small, small, ProFeature::screenNotes,
          "Capture the screen and pin numbered notes on it, to send as a review ({notesKeys})"_local, "Notes"},
    Entry{DockWidget::translate, "Quick Translate", "translate", WidgetGroup::textTools, small, small, ProFeature::translate,
          "Translates the text on the clipboard, on this {machine}"_local, "Translate"},
    Entry{DockWidget::keepAwake, "Keep Awake", "cup.and.heat.waves", WidgetGroup::system, small, small, std::nullopt,
          "Keeps the {machine} awake. Click to switch"_local},
    Entry{DockWidget::colorPicker, "Color Picker", "eyedropper", WidgetGroup::productivity, small, small, std::nullopt,
          "Picks a color from anywhere on the screen and copies it. Click to pick", "Picker"},
    Entry{DockWidget::emoji, "Emoji", "face.smiling.inverse", WidgetGroup::textTools, small, small, std::nullopt,
          "Emoji by name. Click to choose one and copy it"},
    Entry{DockWidget::clock, "Clock", "clock", WidgetGroup::productivity, medium, small, std::nullopt,
          "Time and date"},
    Entry{DockWidget::analogClock, "Analog Clock", "clock.fill", WidgetGroup::productivity, small, small, std::nullopt,
          "Time on a round dial"},
    Entry{DockWidget::date, "Date", "calendar", WidgetGroup::productivity, medium, small, std::nullopt,
          "Weekday and date"},
    Entry{DockWidget::week, "Week", "calendar.day.timeline.left", WidgetGroup::productivity, large, medium, std::nullopt,
          "The seven days of this week, with today marked"},
    Entry{DockWidget::worldClock, "World Clock", "globe", WidgetGroup::productivity, large, medium, std::nullopt,
          "The time in other cities. Click to choose them"},
    Entry{DockWidget::monthProgress, "Month Progress", "chart.pie", WidgetGroup::infoAndFun, small, small, std::nullopt,
          "How much of the month has passed", "Month"},
    Entry{DockWidget::dayProgress, "Day Progress", "sun.horizon", WidgetGroup::infoAndFun, small, small, std::nullopt,
          "How much of the day has passed", "Day"},
    Entry{DockWidget::yearProgress, "Year Progress", "chart.pie.fill", WidgetGroup::infoAndFun, small, small, std::nullopt,
          "How much of the year has passed", "Year"},
    Entry{DockWidget::nextEvent, "Next Event", "calendar.badge.clock", WidgetGroup::productivity, large, medium, std::nullopt,
          "The next event of your calendar. Click for the days ahead"},
    Entry{DockWidget::agenda, "Today's Events", "list.bullet.rectangle", WidgetGroup::productivity, extraLarge, medium, std::nullopt,
          "What is left in today's calendar"},
    Entry{DockWidget::weather, "Weather", "cloud.sun", WidgetGroup::weather, medium, small, std::nullopt,
          "Current weather. Click to choose a city"},
    Entry{DockWidget::hourly, "Hourly Forecast", "chart.line.flattrend.xyaxis", WidgetGroup::weather, extraLarge, medium, std::nullopt,
          "Temperature and sky over the next hours", "Hourly"},
    Entry{DockWidget::sun, "Sunrise & Sunset", "sunrise", WidgetGroup::weather, medium, small, std::nullopt,
          "When the sun rises and sets today", "Sun"},
    Entry{DockWidget::wind, "Wind", "wind", WidgetGroup::weather, medium, small, std::nullopt,
          "Wind speed and direction"},
    Entry{DockWidget::pomodoro, "Focus Timer", "timer", WidgetGroup::focus, medium, small, std::nullopt,
          "Focus sessions with breaks. Click for settings"},
    Entry{DockWidget::stopwatch, "Stopwatch", "stopwatch", WidgetGroup::focus, medium, small, std::nullopt,
          "Counts up. Click the ring to start and stop"},
    Entry{DockWidget::water, "Drink Water", "drop", WidgetGroup::focus, medium, small, std::nullopt,
          "Glasses of water today, with a reminder. Click the ring to add one"},
    Entry{DockWidget::cpu, "CPU", "cpu", WidgetGroup::system, medium, small, std::nullopt,
          "Processor load"},
    Entry{DockWidget::cpuChart, "CPU Chart", "chart.bar.xaxis", WidgetGroup::system, large, medium, std::nullopt,
          "Processor load over the last minute", "CPU"},
    Entry{DockWidget::memory, "Memory", "memorychip", WidgetGroup::system, small, small, std::nullopt,
          "Memory in use"},
    Entry{DockWidget::disk, "Disk", "internaldrive", WidgetGroup::system, small, small, std::nullopt,
          "Free space. Click for Disk Doctor: Buddy finds what you can clean"},
    Entry{DockWidget::network, "Network", "arrow.up.arrow.down", WidgetGroup::system, medium, medium, std::nullopt,
          "Download and upload speed"},
    Entry{DockWidget::networkChart, "Network Chart", "chart.xyaxis.line", WidgetGroup::system, large, medium, std::nullopt,
          "Download and upload speed over the last minute", "Network"},
    Entry{DockWidget::battery, "Battery", "battery.75percent", WidgetGroup::system, small, small, std::nullopt,
          "Charge level"},
    Entry{DockWidget::uptime, "Uptime", "clock.arrow.circlepath", WidgetGroup::system, medium, small, std::nullopt,
          "Time since the last start"},
    Entry{DockWidget::ipAddress, "IP Address", "network", WidgetGroup::system, medium, medium, std::nullopt,
          "Address on the local network. Click to copy it"},
    Entry{DockWidget::volume, "Volume", "speaker.wave.2", WidgetGroup::media, medium, small, std::nullopt,
          "Output volume. Click to change it"},
    Entry{DockWidget::gitStatus, "Git Status", "arrow.triangle.branch", WidgetGroup::developer, large, medium, std::nullopt,
          "Branch, changes and sync state of one repository. Click to choose it"},
    Entry{DockWidget::ports, "Localhost Ports", "point.3.connected.trianglepath.dotted", WidgetGroup::developer, medium, medium, std::nullopt,
          "Local servers that are listening. Click one to open it", "Ports"},
    Entry{DockWidget::docker, "Docker", "shippingbox", WidgetGroup::developer, medium, medium, std::nullopt,
          "Running containers. Click for the list"},
    Entry{DockWidget::homebrew, "Homebrew", "mug", WidgetGroup::developer, medium, medium, std::nullopt,
          "Outdated Homebrew packages. Click for the list"},
    Entry{DockWidget::simulators, "Simulators", "iphone", WidgetGroup::developer, medium, medium, std::nullopt,
          "Simulators that are running. Click for the list"},
    Entry{DockWidget::unixTime, "Unix Time", "number", WidgetGroup::developer, medium, medium, std::nullopt,
          "Seconds since 1970. Click to copy them"},
    Entry{DockWidget::uuid, "UUID", "tag", WidgetGroup::developer, small, small, std::nullopt,
          "A new UUID each time. Click to copy it"},
    Entry{DockWidget::password, "Password", "key", WidgetGroup::textTools, small, small, std::nullopt,
          "A new random password each time. Click to copy it"},
    Entry{DockWidget::jsonFormatter, "JSON Formatter", "curlybraces", WidgetGroup::textTools, small, small, std::nullopt,
          "Formats the JSON on the clipboard. Click to format it", "JSON"},
    Entry{DockWidget::base64, "Base64", "doc.text.magnifyingglass", WidgetGroup::textTools, small, small, std::nullopt,
          "Encodes and decodes the text on the clipboard as Base64. Click to choose"},
    Entry{DockWidget::hash, "Hash", "lock.shield", WidgetGroup::textTools, small, small, std::nullopt,
          "SHA-256 of the text on the clipboard. Click to copy it"},
    Entry{DockWidget::textCounter, "Counter", "character.cursor.ibeam", WidgetGroup::textTools, medium, medium, std::nullopt,
          "Characters, words and lines of the text on the clipboard"},
    Entry{DockWidget::caseConverter, "Case Converter", "textformat", WidgetGroup::textTools, small, small, std::nullopt,
          "Upper, lower, title and code case for the text on the clipboard. Click to choose", "Case"},
    Entry{DockWidget::qrCode, "QR Code", "qrcode", WidgetGroup::textTools, small, small, std::nullopt,
          "The text on the clipboard as a QR code. Click to show it"},
    Entry{DockWidget::urlTools, "URL Tools", "link", WidgetGroup::textTools, small, small, std::nullopt,
          "Encodes, decodes and cleans the link on the clipboard. Click to choose"},
    Entry{DockWidget::loremIpsum, "Lorem Ipsum", "text.alignleft", WidgetGroup::textTools, small, small, std::nullopt,
          "Placeholder text. Click to copy the next paragraph", "Lorem"},
    Entry{DockWidget::colorConverter, "Color Converter", "paintpalette", WidgetGroup::textTools, medium, medium, std::nullopt,
          "The color on the clipboard in other notations. Click to copy it", "Color"},
    Entry{DockWidget::calculator, "Calculator", "plus.forwardslash.minus", WidgetGroup::productivity, medium, small, std::nullopt,
          "Works out an expression. Click to type one"},
    Entry{DockWidget::unitConverter, "Unit Converter", "ruler", WidgetGroup::productivity, medium, medium, std::nullopt,
          "Converts length, weight, temperature and more. Click to choose the units"},
    Entry{DockWidget::currency, "Currency", "dollarsign.arrow.circlepath", WidgetGroup::productivity, medium, medium, std::nullopt,
          "Converts an amount at the day's rate. Click to choose the currencies"},
    Entry{DockWidget::quickNote, "Quick Note", "note.text", WidgetGroup::productivity, large, small, std::nullopt,
          "One note, always at hand. Click to write", "Note"},
    Entry{DockWidget::snippets, "Snippets", "text.quote", WidgetGroup::textTools, medium, small, std::nullopt,
          "Texts you use often. Click one to copy it"},
    Entry{DockWidget::weekNumber, "Week Number", "calendar.circle", WidgetGroup::infoAndFun, small, small, std::nullopt,
          "The number of this calendar week", "Week"},
    Entry{DockWidget::countdown, "Countdown", "hourglass", WidgetGroup::infoAndFun, medium, medium, std::nullopt,
          "Days until a date of yours. Click to choose it"},
    Entry{DockWidget::weekend, "Weekend", "sofa", WidgetGroup::infoAndFun, medium, medium, std::nullopt,
          "Time until the weekend"},
    Entry{DockWidget::moonPhase, "Moon Phase", "moon", WidgetGroup::infoAndFun, medium, small, std::nullopt,
          "Phase of the moon tonight", "Moon"},
    Entry{DockWidget::flipClock, "Flip Clock", "rectangle.split.2x1", WidgetGroup::infoAndFun, medium, medium, std::nullopt,
          "Time on two flip cards"},
    Entry{DockWidget::binaryClock, "Binary Clock", "circle.grid.3x3", WidgetGroup::infoAndFun, medium, medium, std::nullopt,
          "Time in binary digits"},
    Entry{DockWidget::meetingPlanner, "Meeting Planner", "person.2", WidgetGroup::productivity, extraLarge, medium, std::nullopt,
          "Working hours in several cities side by side. Click to choose them", "Meetings"},
    Entry{DockWidget::focusStats, "Focus Stats", "chart.bar", WidgetGroup::focus, large, small, std::nullopt,
          "Focus sessions of this week, day by day", "Focus"},
    Entry{DockWidget::monthCalendar, "Month Calendar", "calendar.badge.checkmark", WidgetGroup::productivity, medium, small, std::nullopt,
          "This month, with today marked. Click to see it whole", "Month"},
    Entry{DockWidget::alarm, "Alarm", "alarm", WidgetGroup::focus, medium, small, std::nullopt,
          "One alarm, with snooze. Click to set it"},
    Entry{DockWidget::breathing, "Breathing", "lungs", WidgetGroup::focus, large, small, std::nullopt,
          "A minute of slow breaths. Click to start"},
    Entry{DockWidget::eyeBreak, "Eye Break", "eye", WidgetGroup::focus, large, small, std::nullopt,
          "A reminder to look into the distance, and a count for today. Click for the interval"},
    Entry{DockWidget::standUp, "Stand Up", "figure.stand", WidgetGroup::focus, medium, small, std::nullopt,
          "A reminder to stand up, and a count for today. Click for the interval"},
    Entry{DockWidget::habits, "Habits", "checkmark.circle", WidgetGroup::focus, medium, small, std::nullopt,
          "Small things to do every day, and how long you have kept them up. Click to tick them off"},
    Entry{DockWidget::mood, "Mood", "heart", WidgetGroup::focus, large, small, std::nullopt,
          "How the last seven days felt. Click to add today"},
    Entry{DockWidget::timer, "Timer", "timer.circle", WidgetGroup::focus, medium, small, std::nullopt,
          "Counts down once. Click to set it"},
    Entry{DockWidget::airQuality, "Air Quality", "aqi.medium", WidgetGroup::weather, large, small, std::nullopt,
          "Air quality index in the chosen city"},
    Entry{DockWidget::uvIndex, "UV Index", "sun.max", WidgetGroup::weather, medium, small, std::nullopt,
          "Strength of the sun's ultraviolet light"},
    Entry{DockWidget::rainSoon, "Rain Soon", "umbrella", WidgetGroup::weather, large, large, std::nullopt,
          "When rain starts or stops in the next two hours"},
    Entry{DockWidget::dailyForecast, "7-Day Forecast", "calendar.day.timeline.leading", WidgetGroup::weather, extraLarge, medium, std::nullopt,
          "High, low and sky of the next seven days", "7 Days"},
    Entry{DockWidget::feelsLike, "Feels Like", "thermometer.sun", WidgetGroup::weather, medium, small, std::nullopt,
          "Temperature as it feels, with the wind and the damp"},
    Entry{DockWidget::secondCity, "Second City", "building.2", WidgetGroup::weather, large, small, std::nullopt,
          "Current weather in another city. Click to choose it"},
    Entry{DockWidget::todo, "To-Do", "checklist", WidgetGroup::productivity, large, small, std::nullopt,
          "A short list of things to do. Click one to check it off"},
    Entry{DockWidget::reminders, "Reminders", "list.bullet", WidgetGroup::productivity, large, small, std::nullopt,
          "Reminders that are due. Click to see them all"},
    Entry{DockWidget::tally, "Tally Counter", "plus.circle", WidgetGroup::infoAndFun, small, small, std::nullopt,
          "Counts whatever you like. Click to add one", "Tally"},
    Entry{DockWidget::shortcuts, "Shortcuts", "command", WidgetGroup::productivity, small, small, std::nullopt,
          "Runs one shortcut of yours. Click to run it"},
    Entry{DockWidget::folder, "Folder", "folder", WidgetGroup::productivity, medium, small, std::nullopt,
          "What is in one folder. Click to open it"},
    Entry{DockWidget::bookmarks, "Bookmarks", "bookmark", WidgetGroup::productivity, medium, small, std::nullopt,
          "Sites you visit often. Click one to open it", "Sites"},
    Entry{DockWidget::thermal, "Thermal", "thermometer.medium", WidgetGroup::system, medium, small, std::nullopt,
          "How warm the computer runs, and whether it slows down to cool"},
    Entry{DockWidget::gpu, "GPU", "cpu.fill", WidgetGroup::system, medium, small, std::nullopt,
          "Graphics processor load over the last 80 seconds"},
    Entry{DockWidget::memoryPressure, "Memory Pressure", "gauge.medium", WidgetGroup::system, medium, small, std::nullopt,
          "How hard memory is pressed, and the swap in use", "Pressure"},
    Entry{DockWidget::diskActivity, "Disk Activity", "internaldrive.fill", WidgetGroup::system, medium, medium, std::nullopt,
          "Read (blue) and write (purple) speed of all disks", "Activity"},
    Entry{DockWidget::topApps, "Top Apps", "list.number", WidgetGroup::system, large, medium, std::nullopt,
          "The three programs that use the processor most"},
    Entry{DockWidget::batteryHealth, "Battery Health", "battery.100percent", WidgetGroup::system, medium, small, std::nullopt,
          "Charge the battery still holds, and its cycles", "Health"},
    Entry{DockWidget::power, "Power", "bolt", WidgetGroup::system, medium, small, std::nullopt,
          "Adapter, charging and the time left"},
    Entry{DockWidget::bluetooth, "Bluetooth", "dot.radiowaves.right", WidgetGroup::system, medium, medium, std::nullopt,
          "Connected devices and their charge"},
    Entry{DockWidget::wifi, "Wi-Fi", "wifi", WidgetGroup::system, medium, small, std::nullopt,
          "Name and signal of the wireless network"},
    Entry{DockWidget::latency, "Latency", "waveform.path.ecg", WidgetGroup::system, medium, small, std::nullopt,
          "Time to reach the internet, every 30 seconds"},
    Entry{DockWidget::volumes, "Volumes", "externaldrive", WidgetGroup::system, medium, medium, std::nullopt,
          "External drives and their free space, with an Eject button"},
    Entry{DockWidget::display, "Display", "display", WidgetGroup::system, medium, medium, std::nullopt,
          "Resolution, refresh rate and scale of the main display"},
    Entry{DockWidget::nowPlaying, "Now Playing", "music.note", WidgetGroup::media, extraLarge, medium, std::nullopt,
          "The song in Music or Spotify, with play, pause and next. Click Connect first"},
    Entry{DockWidget::micMute, "Mic Mute", "mic", WidgetGroup::media, small, small, std::nullopt,
          "Mutes and unmutes the microphone. Click to switch"},
    Entry{DockWidget::hackerNews, "Hacker News", "newspaper", WidgetGroup::infoAndFun, extraLarge, medium, std::nullopt,
          "The top story on Hacker News, every 15 minutes. Click to open it"},
    Entry{DockWidget::quote, "Quote", "quote.opening", WidgetGroup::infoAndFun, extraLarge, medium, std::nullopt,
          "A short quote that changes every day. Click to copy it"},
};
// clang-format on

constexpr std::size_t indexOf(DockWidget widget) { return static_cast<std::size_t>(widget); }

consteval bool followsTheDeclaration() {
  for (std::size_t i = 0; i < catalogue.size(); ++i)
    if (indexOf(catalogue[i].widget) != i || EnumText<DockWidget>::table[i].first != catalogue[i].widget) return false;
  return catalogue.size() == EnumText<DockWidget>::table.size();
}
// An entry is found by its index.
static_assert(followsTheDeclaration());

const Entry& entryOf(DockWidget widget) { return catalogue[indexOf(widget)]; }

}  // namespace

std::string_view title(DockWidget widget) { return entryOf(widget).title; }
std::string_view shortTitle(DockWidget widget) {
  const Entry& entry = entryOf(widget);
  return entry.shortTitle.empty() ? entry.title : entry.shortTitle;
}
std::string_view description(DockWidget widget) { return entryOf(widget).description; }
std::string_view symbol(DockWidget widget) { return entryOf(widget).symbol; }
WidgetGroup group(DockWidget widget) { return entryOf(widget).group; }
TileSize defaultSize(DockWidget widget) { return entryOf(widget).size; }
TileSize smallestSize(DockWidget widget) { return entryOf(widget).smallest; }
std::optional<ProFeature> requiredFeature(DockWidget widget) { return entryOf(widget).feature; }

std::string_view need(DockWidget widget) {
  using enum DockWidget;
  static const std::map<std::string_view, std::set<DockWidget>> needs{
      {"the internet",
       {weather, hourly, wind, airQuality, uvIndex, rainSoon, dailyForecast, feelsLike, secondCity, sun, currency,
        hackerNews, latency}},
      {"Claude Code, Codex, Cursor or Antigravity", {agents}},
      {"Claude Code", {claudeUsage}},
      {"Codex", {codexLimits}},
      {"a calendar file or account", {nextEvent, agenda, reminders}},
      {"a battery", {battery, batteryHealth}},
      {"a Wi-Fi adapter", {wifi}},
      {"a Bluetooth adapter", {bluetooth}},
      {"a graphics processor that reports its load", {gpu}},
      {"a temperature sensor", {thermal}},
      {"an external drive", {volumes}},
      {"a sound device", {volume}},
      {"a microphone", {micMute}},
      {"a Git repository", {gitStatus}},
      {"Docker", {docker}},
      {"Homebrew", {homebrew}},
      {"a simulator or an emulator", {simulators}},
      {"a media player", {nowPlaying}},
  };
  for (const auto& [need, widgets] : needs)
    if (widgets.contains(widget)) return need;
  return {};
}

std::string_view title(WidgetGroup group) {
  switch (group) {
    case WidgetGroup::system:
      return "System";
    case WidgetGroup::productivity:
      return "Productivity";
    case WidgetGroup::weather:
      return "Weather";
    case WidgetGroup::textTools:
      return "Text Tools";
    case WidgetGroup::focus:
      return "Focus";
    case WidgetGroup::developer:
      return "Developer";
    case WidgetGroup::infoAndFun:
      return "Info & Fun";
    case WidgetGroup::media:
      return "Media";
  }
  return {};
}

std::vector<DockWidget> widgetsMatching(std::string_view query) {
  const std::string wanted = asciiLower(trimmed(query));
  std::vector<DockWidget> found;
  for (const Entry& entry : catalogue)
    if (asciiLower(entry.title).find(wanted) != std::string::npos ||
        asciiLower(entry.description).find(wanted) != std::string::npos)
      found.push_back(entry.widget);
  return found;
}

}  // namespace ambrel
