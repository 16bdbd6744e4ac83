#pragma once
// The forms under which others may ask for what we have written.

#include <memory>
#include <string>
#include <vector>

#include "core/clipboard/Capture.h"

namespace ambrel {

struct ServedForm {
  std::string target;  // what is asked for
  std::string type;    // what the answer is; X11 tells it
  std::shared_ptr<const std::string> bytes;
};

// Each representation, and a text in all forms that people ask for: STRING only where Latin-1 can hold it. Each target
// once.
std::vector<ServedForm> servedForms(std::vector<Representation> representations);

}  // namespace ambrel
