#pragma once
// Plays a recording of agents at work against the polls that watch them, and compares what they say with what the
// user saw.
//
// A recording has one step a line, in the order of time. "at" is in seconds; {"$iso":N} and {"$ms":N} in a document
// stand for the instant N seconds into it.
//   {"file":PATH,"line":{...}}           a line is appended to a log
//   {"registry":{...}}, {"registryGone":PID}
//   {"process":PID,"start":TICKS}, {"processGone":PID}, {"child":PID,"of":PID,"start":TICKS},
//   {"childGone":PID,"of":PID}
//   {"hook":KIND,"pid":PID,"input":{...}}  a tool's process calls its hook
//   {"truth":SESSION,"status":...,"reason":...,"asks":...}  what the user sees from now on; with
//     "isInterrupted" the user broke the turn off; with "onlyHooksTell" neither the registry nor the log says what is
//     asked

#include <filesystem>
#include <string>

namespace ambrel {

struct ReplayOptions {
  bool hasRegistry = true;
  bool hasHooks = true;
};

struct ReplayScore {
  int moments = 0, agreeing = 0;
  int waits = 0, found = 0;  // found: by the first poll that begins after the prompt came up
  int falseAlarms = 0;       // moments
  std::string differences;   // a line each

  ReplayScore& operator+=(const ReplayScore& other);
};

// One poll every three seconds; every session of every poll is a moment.
ReplayScore replay(const std::filesystem::path& recording, const ReplayOptions& options);

}  // namespace ambrel
