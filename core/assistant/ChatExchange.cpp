#include "core/assistant/ChatExchange.h"

#include <algorithm>

#include "core/base/JSON.h"

namespace ambrel {
namespace {

JSON described(const AssistantTool& tool) {
  JSON properties = JSON::object(), required = JSON::array();
  if (!tool.argument.empty()) {
    properties[std::string(tool.argument)] = {{"type", "string"}, {"description", tool.guide}};
    required.push_back(tool.argument);
  }
  return {{"type", "function"},
          {"function",
           {{"name", tool.name},
            {"description", tool.description},
            {"parameters", {{"type", "object"}, {"properties", properties}, {"required", required}}}}}};
}

// Some servers put the text into a text once more.
std::optional<JSON> parsedArguments(const std::string& text) {
  if (text.empty()) return JSON::object();
  auto arguments = parseJSON(text);
  if (arguments && arguments->is_string()) arguments = parseJSON(arguments->get<std::string>());
  if (arguments && arguments->is_null()) return JSON::object();
  return arguments && arguments->is_object() ? arguments : std::nullopt;
}

}  // namespace

std::optional<AssistantCall> assistantCall(const ChatToolCall& call, std::string& mistake) {
  const auto tools = assistantTools();
  const auto tool = std::ranges::find(tools, std::string_view(call.name), &AssistantTool::name);
  if (tool == tools.end()) {
    mistake = "There is no tool of this name.";
    return std::nullopt;
  }
  if (tool->argument.empty()) return AssistantCall{.action = tool->action};
  const auto arguments = parsedArguments(call.arguments);
  auto name = arguments ? stringField(*arguments, tool->argument) : std::nullopt;
  if (!name) {
    mistake = "The arguments must be a JSON object with the string \"" + std::string(tool->argument) + "\".";
    return std::nullopt;
  }
  return AssistantCall{.action = tool->action, .name = std::move(*name)};
}

ChatExchange::ChatExchange(std::string model, ChatQuestion question)
    : model_(std::move(model)), hasTools_(question.hasTools) {
  messages_.push_back({.role = "system", .text = std::move(question.instructions)});
  std::size_t room = mostEarlierBytes;
  auto first = question.earlier.end();
  while (first != question.earlier.begin()) {
    const std::size_t size = std::prev(first)->question.size() + std::prev(first)->answer.size();
    if (size > room) break;
    room -= size;
    --first;
  }
  for (; first != question.earlier.end(); ++first) {
    messages_.push_back({.role = "user", .text = std::move(first->question)});
    messages_.push_back({.role = "assistant", .text = std::move(first->answer)});
  }
  messages_.push_back({.role = "user", .text = std::move(question.prompt)});
}

std::string ChatExchange::request() const {
  JSON messages = JSON::array();
  for (const Message& message : messages_) {
    JSON entry{{"role", message.role}, {"content", message.text}};
    for (const ChatToolCall& call : message.calls)
      entry["tool_calls"].push_back(
          {{"id", call.id}, {"type", "function"}, {"function", {{"name", call.name}, {"arguments", call.arguments}}}});
    if (!message.callID.empty()) entry["tool_call_id"] = message.callID;
    messages.push_back(std::move(entry));
  }
  JSON body{{"model", model_}, {"messages", std::move(messages)}, {"stream", true}};
  if (hasTools_)
    for (const AssistantTool& tool : assistantTools()) body["tools"].push_back(described(tool));
  return compactJSON(body);
}

void ChatExchange::add(std::string_view bytes) { reply_.add(bytes); }

ChatExchange::Next ChatExchange::end(const std::function<std::string(const AssistantCall&)>& perform) {
  reply_.end();
  const auto fail = [&](std::string problem) {
    problem_ = std::move(problem);
    return Next::failed;
  };
  if (reply_.problem()) return fail(*reply_.problem());
  if (!reply_.isComplete()) return fail("The model server broke off in the middle of its answer.");
  if (!reply_.calls().empty() && hasTools_) {
    if (++rounds_ == mostRounds) return fail("The model went on calling tools.");
    carryOut(perform);
    return Next::ask;
  }
  answer_ = reply_.text();
  // A model may find that the tools have said it all.
  if (answer_.empty())
    for (const std::string& said : performed_) answer_ += (answer_.empty() ? "" : " ") + said;
  return answer_.empty() ? fail("The model gave no answer.") : Next::answered;
}

void ChatExchange::carryOut(const std::function<std::string(const AssistantCall&)>& perform) {
  Message asked{.role = "assistant", .text = reply_.text(), .calls = reply_.calls()};
  std::vector<Message> results;
  for (ChatToolCall& call : asked.calls) {
    // Each result names its call.
    call.id = "call_" + std::to_string(rounds_) + "_" + std::to_string(results.size());
    std::string result;
    if (const auto wanted = assistantCall(call, result)) {
      result = perform(*wanted);
      performed_.push_back(result);
    }
    // What the model has written is repeated as JSON or not at all: servers refuse requests with anything else in them.
    call.arguments = compactJSON(parsedArguments(call.arguments).value_or(JSON::object()));
    results.push_back({.role = "tool", .text = std::move(result), .callID = call.id});
  }
  messages_.push_back(std::move(asked));
  std::ranges::move(results, std::back_inserter(messages_));
  reply_ = {};
}

}  // namespace ambrel
