#include <gtest/gtest.h>

#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/review.h"

namespace ambrel {
namespace {

// One page, with pins from left to right.
struct OnePage {
  explicit OnePage(int pins = 0) {
    review.addPage(page);
    for (int i = 1; i <= pins; ++i) {
      ids.push_back(*review.addPin(page, {0.1 * i, 0.5}));
      review.setText(page, ids.back(), "note " + std::to_string(i));
    }
  }
  UUID page = UUID::random();
  ScreenReview review;
  std::vector<UUID> ids;
};

TEST(ScreenReview, NumbersPinsByTheirPlaceOnThePage) {
  OnePage one(3);
  one.review.addPage(UUID::random());
  one.review.addPin(one.review.pages[1].id, {0, 0});
  one.review.removePin(one.page, one.ids[1]);
  EXPECT_EQ(one.review.markdown("T"), "# T\n## Capture 1\n1. note 1\n2. note 3\n## Capture 2\n1. (no text)");
  EXPECT_EQ(one.review.noteCount(), 3u);
  EXPECT_EQ(one.review.allPins()[1].id, one.ids[2]);
  one.review.removePage(one.page);
  EXPECT_EQ(one.review.markdown("T"), "# T\n## Capture 1\n1. (no text)");
}

TEST(ScreenReview, PutsEachNoteOnOneLine) {
  const std::pair<const char*, const char*> notes[] = {{"a\nb\r\nc", "a b c"},
                                                       {"a\v\fb", "a b"},
                                                       {"a\xC2\x85"
                                                        "b\xE2\x80\xA8"
                                                        "c\xE2\x80\xA9",
                                                        "a b c"},
                                                       {"  two  blanks  ", "two  blanks"},
                                                       {"a\n \nb", "a   b"},
                                                       {" \n\t", "(no text)"}};
  for (const auto& [text, line] : notes) {
    OnePage one(1);
    one.review.setText(one.page, one.ids[0], text);
    EXPECT_EQ(one.review.markdown(""), std::string("# \n## Capture 1\n1. ") + line);
  }
}

TEST(ScreenReview, IgnoresEditsOfWhatIsNotThere) {
  OnePage one(1);
  const ScreenReview before = one.review;
  const UUID nobody = UUID::random();
  EXPECT_FALSE(one.review.addPin(nobody, {}));
  one.review.movePin(one.page, nobody, {0.3, 0.3});
  one.review.setText(nobody, one.ids[0], "x");
  one.review.removePin(nobody, one.ids[0]);
  one.review.addHighlight(nobody, {0, 0, 1, 1});
  one.review.removeHighlight(one.page, 0);
  EXPECT_FALSE(one.review.crop(one.page, {0.2, 0.2, 0, 0.5}));
  EXPECT_EQ(one.review, before);
}

TEST(ScreenReview, DropsHighlightsThatAreSlips) {
  for (const auto& [width, height, kept] : {std::tuple{0.004, 0.1, 0u}, {0.1, 0.004, 0u}, {0.005, 0.005, 1u}}) {
    OnePage one;
    one.review.addHighlight(one.page, {0.1, 0.1, width, height});
    EXPECT_EQ(one.review.pages[0].highlights.size(), kept) << width << " by " << height;
  }
}

TEST(ScreenReview, KeepsMarksInTheirPlaceOnThePictureWhenItIsCropped) {
  OnePage one(3);  // at 0.1, 0.2 and 0.3
  one.review.addHighlight(one.page, {0.1, 0.4, 0.2, 0.2});
  one.review.addHighlight(one.page, {0.8, 0.8, 0.1, 0.1});
  EXPECT_EQ(one.review.crop(one.page, {0.2, 0.25, 0.4, 0.5}), one.review.pages[0].id);
  EXPECT_NE(one.review.pages[0].id, one.page);
  ASSERT_EQ(one.review.pages[0].pins.size(), 2u);
  EXPECT_EQ(one.review.pages[0].pins[0].point, (NormalizedPoint{0, 0.5}));
  EXPECT_NEAR(one.review.pages[0].pins[1].point.x, 0.25, 1e-9);
  ASSERT_EQ(one.review.pages[0].highlights.size(), 1u);
  const NormalizedRect box = one.review.pages[0].highlights[0];
  EXPECT_NEAR(box.x, 0, 1e-9);
  EXPECT_NEAR(box.width, 0.25, 1e-9);
  EXPECT_NEAR(box.y, 0.3, 1e-9);
  EXPECT_NEAR(box.height, 0.4, 1e-9);
}

TEST(ReviewHistory, UndoesTheLettersOfANoteTogether) {
  ReviewHistory history;
  OnePage one(1);
  history.apply(one.review);
  const auto type = [&](const char* text, const char* run) {
    ScreenReview next = history.present();
    next.setText(one.page, one.ids[0], text);
    history.apply(std::move(next), run);
  };
  type("a", "pin 1");
  type("ab", "pin 1");
  history.endRun();
  type("abc", "pin 1");
  const auto text = [&] { return history.present().pages[0].pins[0].text; };
  history.undo();
  EXPECT_EQ(text(), "ab");
  history.undo();
  EXPECT_EQ(text(), "note 1");
  history.redo();
  EXPECT_EQ(text(), "ab");
  type("ab", "");  // no change: what can be redone stays
  EXPECT_TRUE(history.canRedo());
  type("x", "");
  EXPECT_FALSE(history.canRedo());
  history.undo();
  history.undo();
  history.undo();
  EXPECT_FALSE(history.canUndo());
  EXPECT_TRUE(history.present().pages.empty());
}

TEST(ReviewDocument, BecomesMarkdown) {
  const std::string cases = AMBREL_CASES "/review/";
  const TitledReview document = decodedReview(*readFile(cases + "checkout.json"));
  EXPECT_EQ(document.review.markdown(document.title) + "\n", *readFile(cases + "checkout.md"));
}

TEST(ReviewDocument, IsRefusedWhereItHasAnotherForm) {
  for (const char* text : {"", "[]", R"({"pages": {}})", R"({"pages": [1]})", R"({"pages": [{"pins": [{"x": 1}]}]})",
                           R"({"pages": [{"highlights": [{"x": 0, "y": 0, "width": "1", "height": 1}]}]})"})
    EXPECT_THROW(decodedReview(text), DecodingError) << text;
  EXPECT_TRUE(decodedReview("{}").review.pages.empty());
}

}  // namespace
}  // namespace ambrel
