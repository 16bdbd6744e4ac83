#include "tests/Matchers.h"
#include "tests/e2e/pasteboard/PasteboardFixture.h"

namespace ambrel {
namespace {

class PasteboardWriteTest : public PasteboardTest {
 protected:
  // Written, and visible to others: the selection is taken in the background.
  std::int64_t write(std::vector<Representation> representations) {
    constexpr std::size_t small = 100'000;
    RequestorClient other;
    const auto before = other.stamp();
    const Representation first = representations.front();
    const auto count = pasteboard->write(std::move(representations));
    EXPECT_TRUE(eventually([&] {
      return first.bytes.size() > small ? other.stamp() != before : pasted(other, first.type) == first.bytes;
    }));
    return count;
  }

  RequestorClient requestor;
};

TEST_F(PasteboardWriteTest, TextIsServedInEveryFormThatPeopleAskFor) {
  write(textRepresentations("caf\u00E9"));
  const auto targets = requestor.targets();
  for (const char* target : {"text/plain;charset=utf-8", "UTF8_STRING", "text/plain", "TEXT", "STRING"})
    EXPECT_THAT(targets, Contains(target));
  for (const char* target : {"text/plain;charset=utf-8", "UTF8_STRING", "text/plain", "TEXT"})
    EXPECT_EQ(pasted(requestor, target), "caf\u00E9") << target;
  EXPECT_EQ(pasted(requestor, "STRING"), "caf\xE9");
  EXPECT_EQ(pasted(requestor, "image/png"), "(refused)");
  pasteboard->write(textRepresentations("overtaken"));
  write(textRepresentations("\u20AC 5"));
  EXPECT_THAT(requestor.targets(), Not(Contains("STRING"))) << "it is beyond Latin-1";
  EXPECT_EQ(pasted(requestor, "UTF8_STRING"), "\u20AC 5");
  EXPECT_EQ(changes, 0);
}

TEST_F(PasteboardWriteTest, ItsOwnWritesAreNoChangesToRead) {
  const auto before = pasteboard->changeCount();
  const auto count = write(textRepresentations("mine"));
  EXPECT_NE(count, before);
  EXPECT_EQ(pasteboard->changeCount(), count);
  EXPECT_TRUE(read().contents.isEmpty());
  EXPECT_EQ(changes, 0);
  OwnerClient other({{"UTF8_STRING", whole("theirs")}});
  copy(other);
  EXPECT_EQ(pasteboard->changeCount(), count + 1);
  EXPECT_EQ(read().contents.text, "theirs");
  EXPECT_EQ(pasted(requestor, "UTF8_STRING"), "theirs");
}

TEST_F(PasteboardWriteTest, WritingNothingClears) {
  OwnerClient other({{"UTF8_STRING", whole("theirs")}});
  copy(other);
  const auto count = pasteboard->write({});
  EXPECT_TRUE(eventually([&] { return !requestor.hasOwner(); }));
  EXPECT_TRUE(read().contents.isEmpty());
  EXPECT_EQ(pasteboard->changeCount(), count);
  EXPECT_EQ(ownersGone, 0);
}

TEST_F(PasteboardWriteTest, LargeContentsGoOutInPieces) {
  const std::string text = numberedText(5'000'000);
  write(textRepresentations(text));
  const auto answer = requestor.paste("UTF8_STRING");
  ASSERT_TRUE(answer);
  EXPECT_TRUE(answer->wasInPieces);
  EXPECT_TRUE(answer->bytes == text);
}

TEST_F(PasteboardWriteTest, ATransferGoesOnWhenTheContentsHaveChanged) {
  const std::string text = numberedText(2'000'000);
  write(textRepresentations(text));
  bool isFirst = true;
  const auto answer = requestor.paste("UTF8_STRING", [&] {
    if (std::exchange(isFirst, false)) write(textRepresentations("new"));
    return true;
  });
  ASSERT_TRUE(answer);
  EXPECT_TRUE(answer->bytes == text);
  EXPECT_EQ(pasted(requestor, "UTF8_STRING"), "new");
}

TEST_F(PasteboardWriteTest, RequestorsThatStopOrDieHoldNobodyUp) {
  const std::string text = numberedText(2'000'000);
  write(textRepresentations(text));
  for (int i = 0; i < 40; ++i) {
    RequestorClient quitter;
    quitter.paste("UTF8_STRING", [] { return false; });
  }
  std::vector<std::unique_ptr<RequestorClient>> stopped;
  for (int i = 0; i < 40; ++i) {
    stopped.push_back(std::make_unique<RequestorClient>());
    stopped.back()->paste("UTF8_STRING", [] { return false; });
  }
  const auto answer = requestor.paste("UTF8_STRING");
  ASSERT_TRUE(answer);
  EXPECT_TRUE(answer->bytes == text);
}

TEST_F(PasteboardWriteTest, WhatWasCopiedCanBePastedAfterItsApplicationHasQuit) {
  OwnerClient owner({{"UTF8_STRING", whole("words")}});
  copy(owner);
  const auto text = read().contents.text;
  pasteboard->setOwnerGoneHandler([&] {
    ++ownersGone;
    pasteboard->restore(textRepresentations(*text));
  });
  owner.quit();
  ASSERT_TRUE(main.runUntil([&] { return ownersGone == 1; }));
  EXPECT_TRUE(eventually([&] { return pasted(requestor, "UTF8_STRING") == "words"; }));
}

TEST_F(PasteboardWriteTest, WhatIsRestoredYieldsToANewCopy) {
  OwnerClient other({{"UTF8_STRING", whole("new")}});
  copy(other);
  ASSERT_TRUE(main.runUntil([&] { return changes == 1; }));
  pasteboard->restore(textRepresentations("old"));
  ASSERT_TRUE(main.runUntil([&] { return changes == 2; }));
  EXPECT_EQ(read().contents.text, "new");
  EXPECT_EQ(pasted(requestor, "UTF8_STRING"), "new");
  // What is meant to take its place does.
  write(textRepresentations("mine"));
  EXPECT_EQ(pasted(requestor, "UTF8_STRING"), "mine");
}

TEST_F(PasteboardWriteTest, AnsweringGoesOnWhileAnotherOwnerHangs) {
  OwnerClient hangs({{"UTF8_STRING", {.manner = Manner::silent}}});
  copy(hangs);
  pasteboard->read({}, [](const PasteboardReading&) {});
  write(textRepresentations("mine"));
  EXPECT_EQ(pasted(requestor, "UTF8_STRING"), "mine");
}

}  // namespace
}  // namespace ambrel
