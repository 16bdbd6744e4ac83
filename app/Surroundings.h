#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "core/agents.h"
#include "core/base/PresentCalendar.h"
#include "core/calendar/CalendarFolders.h"

namespace ambrel {

// Where the user's things are, and what time it is.
struct Surroundings {
  std::filesystem::path home;
  std::filesystem::path dataFolder;    // the folder "Ambrel" itself
  std::filesystem::path defaultsFile;  // defaults.json
  PresentCalendar calendar;
  std::function<Instant()> now;
  AgentFolders agentFolders = {};
  UserHome userHome = {};              // where others keep their things
  std::filesystem::path program = {};  // what runs, absolute
  std::filesystem::path tool = {};     // tilebayctl; empty where it is not installed
  std::string licenceKey = {};         // what licences are to be signed with, as of `licenceKey`
};

}  // namespace ambrel
