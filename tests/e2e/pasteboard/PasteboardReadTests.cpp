#include "tests/Matchers.h"
#include "tests/e2e/pasteboard/PasteboardFixture.h"

namespace ambrel {
namespace {

using PasteboardReadTest = PasteboardTest;

TEST_F(PasteboardReadTest, ACopyIsNoticedAndRead) {
  EXPECT_TRUE(read().contents.isEmpty());
  OwnerClient owner({{"UTF8_STRING", whole("words\n")}, {"text/html", whole("<b>words</b>")}});
  copy(owner);
  ASSERT_TRUE(main.runUntil([&] { return changes == 1; }));
  const auto reading = read();
  EXPECT_EQ(reading.contents.text, "words\n");
  EXPECT_THAT(reading.types, Contains("text/html"));
  EXPECT_EQ(reading.changeCount, pasteboard->changeCount());
  EXPECT_THAT(owner.asked(), ElementsAre("UTF8_STRING"));
  copy(owner);
  EXPECT_EQ(pasteboard->changeCount(), reading.changeCount + 1) << "the same text again is a change";
}

TEST_F(PasteboardReadTest, AMarkedSecretIsNotEvenAskedFor) {
  OwnerClient owner({{"UTF8_STRING", whole("hunter2")}, {"x-kde-passwordManagerHint", whole("public")}});
  copy(owner);
  const auto reading = read();
  EXPECT_TRUE(reading.contents.isEmpty());
  EXPECT_TRUE(isPrivate(reading.types));
  EXPECT_THAT(owner.asked(), IsEmpty());
}

TEST_F(PasteboardReadTest, FilesAndPicturesAreReadAsTheyAre) {
  std::string png("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\x02\0\0\0\x03", 24);
  OwnerClient files(
      {{"text/uri-list", whole("file:///a%20b\r\n")}, {"image/png", whole(png)}, {"UTF8_STRING", whole("a b")}});
  copy(files);
  EXPECT_THAT(read().contents.filePaths, ElementsAre("/a b"));
  OwnerClient picture({{"image/png", whole(png)}, {"UTF8_STRING", whole("a picture")}});
  copy(picture);
  const auto both = read();
  EXPECT_EQ(both.contents.picture, (Representation{"image/png", png}));
  EXPECT_EQ(both.contents.text, "a picture");
  EXPECT_EQ(read({.wantsPicture = false}).contents.text, "a picture");
}

TEST_F(PasteboardReadTest, LargeTextsComeInPiecesOrWhole) {
  const std::string text = numberedText(20'000'000), property = numberedText(3'500'000);
  OwnerClient owner({{"UTF8_STRING", {.manner = Manner::pieces, .bytes = text, .announced = 1}}}),
      other({{"UTF8_STRING", whole(property)}});
  copy(owner);
  EXPECT_TRUE(read().contents.text == text);
  copy(other);
  EXPECT_TRUE(read().contents.text == property);
}

TEST_F(PasteboardReadTest, OwnersThatFailCostATimeOutAndNothingElse) {
  const std::string text = numberedText(300'000);
  for (const Manner manner : {Manner::refuses, Manner::silent, Manner::stopsHalfWay}) {
    OwnerClient owner({{"UTF8_STRING", {.manner = manner, .bytes = text}}});
    copy(owner);
    EXPECT_TRUE(read().contents.isEmpty()) << static_cast<int>(manner);
    expectWorkingStill();
  }
}

TEST_F(PasteboardReadTest, AnOwnerThatNeverEndsIsLeftAtTheLimit) {
  OwnerClient owner(
      {{"text/uri-list", {.manner = Manner::neverEnds, .bytes = std::string(1'000'000, 'x'), .pieceSize = 1'000'000}},
       {"UTF8_STRING", whole("its text")}});
  copy(owner);
  EXPECT_EQ(read().contents.text, "its text");
  expectWorkingStill();
}

TEST_F(PasteboardReadTest, AnOwnerThatMissesARequestIsAskedAgain) {
  OwnerClient misses({{"UTF8_STRING", {.manner = Manner::silentFirst, .bytes = "words"}}});
  copy(misses);
  EXPECT_EQ(read().contents.text, "words");
}

TEST_F(PasteboardReadTest, WhatCouldNotBeTakenOverIsTold) {
  OwnerClient hangs({{"UTF8_STRING", {.manner = Manner::silent}}});
  copy(hangs);
  EXPECT_EQ(read().contents.lost, (LostCopy{LostCopy::Reason::noAnswer, ClipKind::text, 0}));
  OwnerClient large({{"UTF8_STRING", whole(numberedText(300'000))}});
  copy(large);
  EXPECT_EQ(read({.limits = {.text = 200'000}}).contents.lost,
            (LostCopy{LostCopy::Reason::tooLarge, ClipKind::text, 300'000}));
}

TEST_F(PasteboardReadTest, ATransferThatIsTooLargeIsTakenToItsEnd) {
  OwnerClient owner({{"UTF8_STRING", {.manner = Manner::pieces, .bytes = numberedText(5'000'000)}}});
  copy(owner);
  EXPECT_EQ(read({.limits = {.text = 1'000'000}}).contents.lost,
            (LostCopy{LostCopy::Reason::tooLarge, ClipKind::text, 5'000'000}));
  EXPECT_EQ(owner.openTransfers(), 0);
}

TEST_F(PasteboardReadTest, HundredsOfTypesAreNamedAtOnce) {
  OwnerClient owner({{"UTF8_STRING", whole("words")}});
  for (int i = 0; i < 500; ++i) owner.furtherTargets.push_back("application/x-office-format-" + std::to_string(i));
  copy(owner);
  const auto reading = read();
  EXPECT_EQ(reading.contents.text, "words");
  EXPECT_THAT(reading.types, Contains("application/x-office-format-499"));
}

TEST_F(PasteboardReadTest, ANewCopyEndsTheReadingOfTheOldOne) {
  OwnerClient hangs({{"UTF8_STRING", {.manner = Manner::silent}}});
  copy(hangs);
  bool isRead = false;
  pasteboard->read({}, [&](const PasteboardReading&) { isRead = true; });
  ASSERT_TRUE(eventually([&] { return hangs.asked().size() == 1; }));
  OwnerClient next({{"UTF8_STRING", whole("next")}});
  copy(next);
  EXPECT_EQ(read().contents.text, "next");
  EXPECT_FALSE(isRead);
}

TEST_F(PasteboardReadTest, AnOwnerThatCopiesAgainWhenAskedMakesNoEndlessLoop) {
  OwnerClient owner({{"UTF8_STRING", whole("words")}});
  owner.takesAnewWhenAsked = true;
  int reads = 0;
  pasteboard->setChangeHandler([&] {
    ++changes;
    pasteboard->read({}, [&](const PasteboardReading&) { ++reads; });
  });
  copy(owner);
  // Each reading brings another change; they are announced a few times only.
  EXPECT_FALSE(main.runUntil([&] { return changes > 50; }, std::chrono::milliseconds(500)));
  EXPECT_GT(reads, 0);
}

TEST_F(PasteboardReadTest, TheEndOfTheOwnerIsNoChange) {
  OwnerClient owner({{"UTF8_STRING", whole("words")}});
  copy(owner);
  const auto count = pasteboard->changeCount();
  owner.quit();
  ASSERT_TRUE(main.runUntil([&] { return ownersGone == 1; }));
  EXPECT_EQ(pasteboard->changeCount(), count);
  EXPECT_TRUE(read().contents.isEmpty());
}

}  // namespace
}  // namespace ambrel
