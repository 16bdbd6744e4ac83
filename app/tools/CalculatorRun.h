#pragma once
// Calculates an expression in a process of its own, which ends when the result is no longer wanted.

#include <QString>
#include <functional>
#include <stop_token>
#include <string>

#include "core/tools.h"

class QObject;

namespace ambrel {

// `done` is called once, later and on this thread; not after `stop` was requested, which ends the process.
using Calculate =
    std::function<void(std::string expression, std::stop_token stop, std::function<void(ToolOutcome)> done)>;

// `tool`: tilebayctl; empty where it is not installed.
Calculate makeCalculate(QString tool, QObject& context);

}  // namespace ambrel
