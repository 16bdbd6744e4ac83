#pragma once
// What a language model is told about a scan: names, sizes, dates and rules, never contents.

#include <string>
#include <string_view>
#include <vector>

#include "core/base/Calendar.h"
#include "core/disk/Findings.h"

namespace ambrel::DiskPrompts {

std::string_view systemText();
std::string summaryPrompt(const DiskItem& root, const std::vector<DiskFinding>& findings, const Calendar& calendar);
std::string findingPrompt(const DiskFinding& finding, const Calendar& calendar);
// `verdict`: the rule-based answer.
std::string itemPrompt(const DiskItem& item, const std::string& question, const std::string& verdict, Instant now,
                       const Calendar& calendar);

}  // namespace ambrel::DiskPrompts
