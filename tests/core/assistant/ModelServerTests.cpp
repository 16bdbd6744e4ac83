#include "core/assistant/ModelServer.h"
#include "tests/Matchers.h"

namespace ambrel {
namespace {

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
