#include <fstream>
#include <iterator>

#include "core/assistant/ChatExchange.h"
#include "core/assistant/ModelServer.h"
#include "core/base/JSON.h"
#include "core/base/Text.h"
#include "tests/Matchers.h"

namespace ambrel {
namespace {

using Next = ChatExchange::Next;

// What a server has sent, to the byte.
std::string recorded(const std::string& name) {
  std::ifstream file(std::string(AMBREL_CASES "/assistant/") + name, std::ios::binary);
  EXPECT_TRUE(file) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

ChatReply replyOf(std::string_view bytes, std::size_t atOnce) {
  ChatReply reply;
  for (; !bytes.empty(); bytes.remove_prefix(std::min(atOnce, bytes.size()))) reply.add(bytes.substr(0, atOnce));
  reply.end();
  return reply;
}

struct Talk {
  ChatExchange exchange{"m", {.instructions = "Be Buddy.", .prompt = "Hello", .hasTools = true}};
  std::vector<AssistantCall> performed;

  Next hear(std::string_view bytes) {
    exchange.add(bytes);
    return exchange.end([&](const AssistantCall& call) {
      performed.push_back(call);
      return "Done with " + call.name + ".";
    });
  }
  JSON request() const { return parseJSON(exchange.request()).value(); }
};

TEST(ChatReply, IsTheSameHoweverItIsWrittenAndCut) {
  const AssistantCall cpu{AssistantAction::addWidget, "CPU"}, agents{AssistantAction::agentsStatus};
  const struct {
    const char* file;
    std::string_view text, problem;
    std::vector<AssistantCall> calls = {};
    bool isComplete = true;
  } rows[] = {
      {"text.sse", "Two agents are working.", ""},
      {"crlf-and-comments.sse", "Hello", ""},
      {"whole.json", "All quiet.", ""},
      {"thinking.sse", "Done.", ""},
      {"not-utf8.sse", "caf\uFFFD \uFFFD!", ""},
      {"silent.sse", "", ""},
      {"fragments.sse", "", "", {cpu, agents}},
      {"same-index.sse", "", "", {cpu, {AssistantAction::removeWidget, "Clock"}}},
      {"no-ids.sse", "", "", {cpu, {AssistantAction::switchProfile, "auto"}}},
      {"objects.ndjson", "", "", {cpu, agents}},
      {"double-text.json", "", "", {cpu}},
      {"error-in-stream.sse", "I will", "out of memory", {}, false},
      {"error-line.ndjson", "I", "model runner has stopped", {}, false},
      {"cut.sse", "I am about to", "", {}, false},
      {"page.html", "", "The model server's answer is not understood.", {}, false},
  };
  for (const auto& row : rows)
    for (const std::size_t atOnce : {1u, 7u, 100000u}) {
      SCOPED_TRACE(testing::Message() << row.file << ", " << atOnce << " bytes at once");
      const ChatReply reply = replyOf(recorded(row.file), atOnce);
      EXPECT_EQ(reply.text(), row.text);
      EXPECT_EQ(reply.problem().value_or(""), row.problem);
      EXPECT_EQ(reply.isComplete(), row.isComplete);
      std::vector<AssistantCall> calls;
      std::string mistake;
      for (const ChatToolCall& call : reply.calls())
        if (const auto wanted = assistantCall(call, mistake)) calls.push_back(*wanted);
      EXPECT_EQ(mistake, "");
      EXPECT_EQ(calls, row.calls);
    }
}

TEST(ChatReply, HasAnEnd) {
  const std::string word = R"(data: {"choices":[{"delta":{"content":"words words words words "}}]})"
                           "\n\n";
  ChatReply reply;
  for (int i = 0; i < 200000 && !reply.problem(); ++i) reply.add(word);
  EXPECT_EQ(reply.problem(), "The model's answer is too long.");
  EXPECT_LE(reply.text().size(), ChatReply::mostText + 100);

  const std::string call =
      R"(data: {"choices":[{"delta":{"tool_calls":[{"function":{"name":"agentsStatus","arguments":"{}"}}]}}]})"
      "\n\n";
  ChatReply greedy;
  for (int i = 0; i < 100; ++i) greedy.add(call);
  EXPECT_EQ(greedy.problem(), "The model asks for too much at once.");

  ChatReply line;
  for (int i = 0; i < 100; ++i) line.add(std::string(100000, 'x'));
  EXPECT_EQ(line.problem(), "The model's answer is too long.");
}

TEST(ChatExchange, TellsTheServerOfTheToolsAndTheirResults) {
  Talk talk;
  const JSON first = talk.request();
  EXPECT_EQ(first["model"], "m");
  EXPECT_EQ(first["stream"], true);
  EXPECT_EQ(first["messages"].dump(), R"([{"content":"Be Buddy.","role":"system"},{"content":"Hello","role":"user"}])");
  std::vector<std::string> names;
  for (const JSON& tool : first["tools"]) names.push_back(tool["function"]["name"]);
  EXPECT_THAT(names, ElementsAre("agentsStatus", "addWidgetToDock", "removeWidget", "switchProfile"));
  EXPECT_EQ(
      first["tools"][1]["function"]["parameters"].dump(),
      R"({"properties":{"widgetName":{"description":"The widget name","type":"string"}},"required":["widgetName"],"type":"object"})");

  ASSERT_EQ(talk.hear(recorded("fragments.sse")), Next::ask);
  EXPECT_EQ(talk.performed.size(), 2u);
  const JSON second = talk.request()["messages"];
  ASSERT_EQ(second.size(), 5u);
  EXPECT_EQ(second[2]["tool_calls"][0]["function"]["arguments"], R"({"widgetName":"CPU"})");
  for (const int i : {0, 1}) EXPECT_EQ(second[2]["tool_calls"][i]["id"], second[3 + i]["tool_call_id"]);
  EXPECT_NE(second[3]["tool_call_id"], second[4]["tool_call_id"]);
  EXPECT_EQ(second[3]["content"], "Done with CPU.");
  ASSERT_EQ(talk.hear(recorded("text.sse")), Next::answered);
  EXPECT_EQ(talk.exchange.answer(), "Two agents are working.");
}

// Servers refuse a request that repeats arguments which are no JSON.
TEST(ChatExchange, TellsTheModelOfItsMistakesAndRepeatsNone) {
  Talk talk;
  ASSERT_EQ(talk.hear(recorded("broken-arguments.sse")), Next::ask);
  EXPECT_TRUE(talk.performed.empty());
  const JSON messages = talk.request()["messages"];
  for (const JSON& call : messages[2]["tool_calls"])
    EXPECT_TRUE(parseJSON(call["function"]["arguments"].get<std::string>())) << call;
  EXPECT_THAT(messages[3]["content"].get<std::string>(), HasSubstr("\"widgetName\""));
  EXPECT_EQ(messages[4]["content"], "There is no tool of this name.");
  EXPECT_THAT(messages[5]["content"].get<std::string>(), HasSubstr("\"itemName\""));
}

TEST(ChatExchange, Ends) {
  Talk endless;
  int rounds = 0;
  while (endless.hear(recorded("fragments.sse")) == Next::ask) ++rounds;
  EXPECT_EQ(rounds, ChatExchange::mostRounds - 1);
  EXPECT_EQ(endless.exchange.problem(), "The model went on calling tools.");

  Talk cut;
  EXPECT_EQ(cut.hear(recorded("cut.sse")), Next::failed);
  EXPECT_EQ(cut.exchange.problem(), "The model server broke off in the middle of its answer.");
  Talk nothing;
  EXPECT_EQ(nothing.hear(""), Next::failed);

  Talk silent;
  EXPECT_EQ(silent.hear(recorded("silent.sse")), Next::failed);
  EXPECT_EQ(silent.exchange.problem(), "The model gave no answer.");
  // Silent after its tools: they have said what there is to say.
  Talk content;
  ASSERT_EQ(content.hear(recorded("no-ids.sse")), Next::ask);
  ASSERT_EQ(content.hear(recorded("silent.sse")), Next::answered);
  EXPECT_EQ(content.exchange.answer(), "Done with CPU. Done with auto.");
}

TEST(ChatExchange, RepeatsAsMuchOfTheConversationAsFits) {
  ChatQuestion question{.instructions = "i", .prompt = "now"};
  for (int i = 0; i < 10; ++i)
    question.earlier.push_back({"q" + std::to_string(i), std::string(ChatExchange::mostEarlierBytes / 4, 'a')});
  const ChatExchange exchange("m", question);
  const JSON messages = parseJSON(exchange.request()).value()["messages"];
  ASSERT_EQ(messages.size(), 8u);
  EXPECT_EQ(messages[1]["content"], "q7");
  EXPECT_EQ(messages[7]["content"], "now");
  EXPECT_FALSE(parseJSON(exchange.request())->contains("tools"));
}

TEST(ModelServer, KnowsThisMachineByName) {
  for (const char* host : {"localhost", "LOCALHOST", "127.0.0.1", "127.9.9.9", "::1"})
    EXPECT_TRUE(isLoopbackHost(host)) << host;
  for (const char* host :
       {"", "localhost.example", "10.0.0.1", "127.1", "0.0.0.0", "::", "127.0.0.1.example", "fe80::1"})
    EXPECT_FALSE(isLoopbackHost(host)) << host;
}

TEST(ModelServer, TakesAddressesWithAndWithoutTheVersion) {
  for (const char* address : {"http://x:1", "http://x:1/", "http://x:1/v1", "http://x:1/v1/"})
    EXPECT_EQ(modelServerURL(address, "models"), "http://x:1/v1/models") << address;
  EXPECT_EQ(modelServerURL("http://x/llm", "models"), "http://x/llm/v1/models");
}

TEST(ModelServer, ChoosesWhatIsWantedOrTheFirstThatTalks) {
  const auto models = parseModels(R"({"object":"list","data":[{"id":"nomic-embed-text:latest"},{"id":"qwen3:8b"},
    {"id":""},{"name":"llama"},7]})");
  ASSERT_TRUE(models);
  EXPECT_THAT(*models, ElementsAre("nomic-embed-text:latest", "qwen3:8b", "llama"));
  EXPECT_EQ(chooseModel(*models, ""), "qwen3:8b");
  EXPECT_EQ(chooseModel(*models, "llama"), "llama");
  EXPECT_EQ(chooseModel(*models, "nomic-embed-text"), "nomic-embed-text:latest");
  EXPECT_EQ(chooseModel(*models, "gone"), std::nullopt);
  EXPECT_THAT(parseModels(R"({"models":[{"name":"a"}]})").value(), ElementsAre("a"));
  for (const char* other : {"", "[]", "<html>", R"({"error":"no"})", R"({"data":{}})"})
    EXPECT_FALSE(parseModels(other)) << other;
}

}  // namespace
}  // namespace ambrel
