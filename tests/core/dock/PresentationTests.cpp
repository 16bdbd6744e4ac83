#include <gtest/gtest.h>

#include "core/dock.h"

namespace ambrel {
namespace {

TEST(Presentation, ShowsThePanelFirstAndThenItsContent) {
  PresentationState state;
  const auto step = state.show();
  ASSERT_TRUE(step);
  EXPECT_EQ(step->delay, Seconds(0.07));
  EXPECT_TRUE(state.isShown && state.isOnScreen);
  EXPECT_FALSE(state.isContentShown);
  EXPECT_EQ(state.show(), std::nullopt);
  EXPECT_EQ(state.generation, 1);
  state.carryOut(*step);
  EXPECT_TRUE(state.isContentShown);
}

TEST(Presentation, HidesTheContentAtOnceAndLeavesTheScreenLater) {
  PresentationState state;
  EXPECT_EQ(state.hide(), std::nullopt);
  state.carryOut(*state.show());
  const auto step = state.hide();
  ASSERT_TRUE(step);
  EXPECT_EQ(step->delay, Seconds(0.36));
  EXPECT_FALSE(state.isShown || state.isContentShown);
  EXPECT_TRUE(state.isOnScreen);
  EXPECT_EQ(state.hide(), std::nullopt);
  state.carryOut(*step);
  EXPECT_FALSE(state.isOnScreen);
}

TEST(Presentation, ALateStepChangesNothing) {
  PresentationState state;
  state.carryOut(*state.show());
  const auto leaving = state.hide();
  const auto content = state.show();
  state.carryOut(*leaving);
  EXPECT_TRUE(state.isOnScreen);
  state.carryOut(*content);
  EXPECT_TRUE(state.isContentShown);
  const auto last = state.hide();
  state.carryOut(*content);
  EXPECT_FALSE(state.isContentShown);
  state.carryOut(*last);
  EXPECT_FALSE(state.isOnScreen);
}

}  // namespace
}  // namespace ambrel
