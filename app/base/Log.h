#pragma once
// The one log: a line on standard error, or in the journal of the session.

#include <QtGlobal>
#include <string>

namespace ambrel {

inline void logLine(const std::string& line) { qWarning("Ambrel: %s", line.c_str()); }

}  // namespace ambrel
