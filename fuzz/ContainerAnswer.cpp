// Whatever comes from a container engine's socket, what is shown of it is text.

#include <cstdint>
#include <cstdlib>

#include "core/base/Text.h"
#include "core/developer/Containers.h"
#include "core/developer/HTTPAnswer.h"

using namespace ambrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto answer = parseHTTPAnswer(bytes);
  if (answer && answer->body.size() > size) std::abort();
  const std::string body = answer ? answer->body : std::string(bytes);
  parseContainers(body);
  engineComplaint(body);
  const std::string log = readableLog(body, 3);
  if (!isValidUTF8(log) || log.find_first_of("\x1b\r\x7f") != std::string::npos) std::abort();
  return 0;
}
