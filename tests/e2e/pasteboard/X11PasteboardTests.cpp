// What X11's conventions have and Wayland's protocols have not.

#include <gmock/gmock.h>

#include "tests/e2e/pasteboard/PasteboardFixture.h"

namespace ambrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

using X11PasteboardTest = PasteboardTest;

TEST_F(X11PasteboardTest, AWrongAnnouncementOfTheSizeDoesNotMatter) {
  const std::string text = numberedText(250'000);
  for (const std::uint32_t announced : {0u, 1u, 0xFFFFFFFFu}) {
    OwnerClient owner({{"UTF8_STRING", {.manner = Manner::pieces, .bytes = text, .announced = announced}}});
    copy(owner);
    EXPECT_TRUE(read().contents.text == text) << announced;
  }
}

TEST_F(X11PasteboardTest, AnOwnerThatDoesNotSayWhatItHasIsNotAskedFurther) {
  OwnerClient owner({{"UTF8_STRING", whole("words")}});
  owner.targetsManner = Manner::silent;
  copy(owner);
  EXPECT_TRUE(read().contents.isEmpty());
  EXPECT_EQ(read().contents.lost, LostCopy{});
  EXPECT_THAT(owner.asked(), IsEmpty());
  EXPECT_EQ(owner.timesAskedForTargets(), 4) << "twice for each reading";
  expectWorkingStill();
}

TEST_F(X11PasteboardTest, ATransferThatIsOvertakenByAnotherCopyIsTakenToItsEnd) {
  OwnerClient overtaken(
      {{"UTF8_STRING", {.manner = Manner::pieces, .bytes = numberedText(6'000'000), .pieceSize = 20'000}}});
  copy(overtaken);
  pasteboard->read({}, [](const PasteboardReading&) {});
  ASSERT_TRUE(eventually([&] { return overtaken.openTransfers() == 1; }));
  expectWorkingStill();
  EXPECT_TRUE(eventually([&] { return overtaken.openTransfers() == 0; }));
}

TEST_F(X11PasteboardTest, AClearingIsAChange) {
  OwnerClient owner({{"UTF8_STRING", whole("secret")}});
  copy(owner);
  const auto count = pasteboard->changeCount();
  owner.clear();
  ASSERT_TRUE(main.runUntil([&] { return pasteboard->changeCount() == count + 1; }));
  owner.quit();
  EXPECT_TRUE(read().contents.isEmpty());
  EXPECT_EQ(ownersGone, 0);
}

TEST_F(X11PasteboardTest, SeveralTypesCanBeAskedForAtOnce) {
  RequestorClient requestor;
  pasteboard->write({{"text/uri-list", "file:///a\r\n"}, {"text/plain;charset=utf-8", "/a"}});
  ASSERT_TRUE(eventually([&] { return pasted(requestor, "UTF8_STRING") == "/a"; }));
  EXPECT_THAT(
      requestor.pasteMultiple({"text/uri-list", "image/png", "UTF8_STRING", "MULTIPLE"}),
      ElementsAre(Optional(std::string("file:///a\r\n")), std::nullopt, Optional(std::string("/a")), std::nullopt));
}

TEST_F(X11PasteboardTest, AnOwnerThatDiesOrSendsNumbersHasGivenNothing) {
  for (const Manner manner : {Manner::diesHalfWay, Manner::wrongFormat}) {
    OwnerClient owner({{"UTF8_STRING", {.manner = manner, .bytes = numberedText(300'000)}}});
    copy(owner);
    EXPECT_TRUE(read().contents.isEmpty()) << static_cast<int>(manner);
    expectWorkingStill();
  }
}

TEST_F(X11PasteboardTest, AnOwnerThatIsBusyOrHasNoListIsAskedAllTheSame) {
  OwnerClient misses({{"UTF8_STRING", whole("words")}});
  misses.targetsManner = Manner::silentFirst;
  copy(misses);
  EXPECT_EQ(read().contents.text, "words");
  OwnerClient busy({{"UTF8_STRING", whole("more words")}});
  busy.targetsManner = Manner::emptyFirst;
  copy(busy);
  EXPECT_EQ(read().contents.text, "more words");
  OwnerClient withoutList({{"STRING", whole("old words")}});
  withoutList.targetsManner = Manner::refuses;
  copy(withoutList);
  EXPECT_EQ(read().contents.text, "old words") << "without a list it is asked for text";
}

TEST_F(X11PasteboardTest, TheConventionsOwnTargetsAreAnswered) {
  RequestorClient requestor;
  pasteboard->write(textRepresentations("words"));
  ASSERT_TRUE(eventually([&] { return pasted(requestor, "UTF8_STRING") == "words"; }));
  EXPECT_THAT(requestor.targets(),
              ElementsAre("TARGETS", "MULTIPLE", "TIMESTAMP", "SAVE_TARGETS", "text/plain;charset=utf-8", "UTF8_STRING",
                          "text/plain", "TEXT", "STRING"));
  EXPECT_EQ(requestor.paste("TEXT")->type, "UTF8_STRING");
  EXPECT_EQ(requestor.paste("TIMESTAMP")->format, 32);
  EXPECT_EQ(requestor.paste("SAVE_TARGETS")->type, "NULL");
}

}  // namespace
}  // namespace ambrel
