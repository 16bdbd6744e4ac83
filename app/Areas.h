#pragma once
// Every area of the program, built in the order of the members, and what connects one with another.

#include <array>
#include <vector>

#include "app/Services.h"
#include "app/agents/AgentsArea.h"
#include "app/assistant/AssistantArea.h"
#include "app/base/Background.h"
#include "app/buddy/BuddyArea.h"
#include "app/calendar/CalendarArea.h"
#include "app/clipboard/ClipboardArea.h"
#include "app/developer/DeveloperArea.h"
#include "app/disk/DiskArea.h"
#include "app/feeds/FeedsArea.h"
#include "app/focus/FocusArea.h"
#include "app/media/MediaArea.h"
#include "app/notes/NotesArea.h"
#include "app/panels/PanelsArea.h"
#include "app/stores/StoresArea.h"
#include "app/telemetry/TelemetryArea.h"
#include "app/time/TimeArea.h"
#include "app/tools/ToolsArea.h"
#include "app/usage/UsageArea.h"
#include "app/weather/WeatherArea.h"

namespace ambrel {

// A new area is a member, how it is made, and its place in `all`. The delegate and the bar learn of it there.
struct Areas {
  explicit Areas(const Services& services);

  BuddyNoticeCenter& notices() { return *buddy.center(); }
  // Those that are not at the bar.
  std::array<ViewWindow*, 2> windows() { return {&disk.window(), &notes.window()}; }
  auto begin() const { return all.begin(); }
  auto end() const { return all.end(); }

  Background background;
  Fetcher fetcher;
  ChatServerModel languageModel;
  AgentsArea agents;
  ClipboardArea clipboard;
  TimeArea time;
  TelemetryArea telemetry;
  UsageArea usage;
  DiskArea disk;
  NotesArea notes;
  FocusArea focus;
  WeatherArea weather;
  StoresArea stores;
  FeedsArea feeds;
  MediaArea media;
  CalendarArea calendars;
  PanelsArea panels;
  ToolsArea tools;
  DeveloperArea developer;
  BuddyArea buddy;
  AssistantArea assistant;
  // The agents' last: they answer what is nobody else's.
  const std::vector<Area*> all{&time,    &telemetry, &usage,     &disk,  &notes,     &focus,
                               &weather, &stores,    &feeds,     &media, &calendars, &panels,
                               &tools,   &developer, &clipboard, &buddy, &assistant, &agents};
};

}  // namespace ambrel
