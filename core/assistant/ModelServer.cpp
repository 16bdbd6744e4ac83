#include "core/assistant/ModelServer.h"

#include <algorithm>
#include <arpa/inet.h>

#include "core/base/JSON.h"
#include "core/base/Text.h"

namespace ambrel {

std::span<const std::string_view> usualModelServers() {
  static constexpr std::string_view servers[] = {"http://127.0.0.1:11434", "http://127.0.0.1:8080"};
  return servers;
}

bool isLoopbackHost(std::string_view host) {
  const std::string name = asciiLower(host);
  if (name == "localhost") return true;
  in_addr four{};
  if (inet_pton(AF_INET, name.c_str(), &four) == 1) return (ntohl(four.s_addr) >> 24) == 127;
  in6_addr six{};
  return inet_pton(AF_INET6, name.c_str(), &six) == 1 && IN6_IS_ADDR_LOOPBACK(&six);
}

std::string modelServerURL(std::string_view address, std::string_view call) {
  while (address.ends_with('/')) address.remove_suffix(1);
  if (address.ends_with("/v1")) address.remove_suffix(3);
  return std::string(address) + "/v1/" + std::string(call);
}

std::optional<std::vector<std::string>> parseModels(std::string_view body) {
  const auto document = parseJSON(repairedUTF8(body));
  if (!document) return std::nullopt;
  const JSON* list = arrayField(*document, "data");
  if (!list) list = arrayField(*document, "models");
  if (!list) return std::nullopt;
  std::vector<std::string> models;
  for (const JSON& entry : *list)
    for (const char* key : {"id", "model", "name"})
      if (auto name = stringField(entry, key); name && !name->empty()) {
        models.push_back(std::move(*name));
        break;
      }
  return models;
}

std::optional<std::string> chooseModel(const std::vector<std::string>& models, std::string_view wanted) {
  const auto found = std::ranges::find_if(models, [&](const std::string& model) {
    if (wanted.empty()) return asciiLower(model).find("embed") == std::string::npos;
    return model == wanted || model == std::string(wanted) + ":latest";
  });
  return found == models.end() ? std::nullopt : std::optional(*found);
}

}  // namespace ambrel
