#include "ctl/InputFile.h"

#include <cerrno>

#include "core/base/Files.h"
#include "ctl/Command.h"

namespace ambrel {

std::string inputFile(const std::string& file, std::uint64_t largest) {
  errno = 0;
  auto bytes = readFile(file, largest);
  if (bytes) return std::move(*bytes);
  const auto status = fileStatus(file);
  if (status && status->isRegular && status->size > largest) throw CommandError(file + " is too large");
  throw FileError("cannot read", file, errno == 0 ? EINVAL : errno);
}

}  // namespace ambrel
