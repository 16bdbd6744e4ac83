#pragma once
// Where language models are looked for, and what a server says of those that it has.

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

// Where the servers that people run listen unless told otherwise: Ollama's port, then llama.cpp's.
std::span<const std::string_view> usualModelServers();

// Whether a URL's host, without the brackets of IPv6, is this machine by its very name.
bool isLoopbackHost(std::string_view host);

// The address with the path of a call: "http://127.0.0.1:8080" or "http://127.0.0.1:8080/v1/" and "chat/completions"
// give "http://127.0.0.1:8080/v1/chat/completions".
std::string modelServerURL(std::string_view address, std::string_view call);

// The names of a server's models in its order, from its answer to "models". Absent for an answer of another form: it is
// no model server.
std::optional<std::vector<std::string>> parseModels(std::string_view body);
// The one that is to answer: the wanted one, with ":latest" added where the server does; if none is wanted the first
// that is not made for searching. Absent when there is none.
std::optional<std::string> chooseModel(const std::vector<std::string>& models, std::string_view wanted);

}  // namespace ambrel
