#include <gtest/gtest.h>

#include <vector>

#include "model/clsFaderCatch.h"

namespace vestrel {
namespace {

Ref<clsFaderCatch> FaderAt(std::int32_t model, std::int32_t outer, bool engaged = false) {
  auto fader = MakeRef<clsFaderCatch>();
  fader->Init();
  fader->SetValue(model, true);
  fader->SetOuterValue(engaged ? model : model + 1);
  fader->ResumeTracking(outer);
  return fader;
}

struct Move {
  std::int32_t model;
  std::int32_t outer;
  bool engaged;
  std::int32_t to;
  bool forced;
  bool caught;
  std::int32_t modelAfter;
  bool engagedAfter;
};

// The whole pick-up decision: where the model value lies on the way of the move, engaged or not, forced or
// not.
const std::vector<Move>& Moves() {
  static const std::vector<Move> table = {
      // not engaged, moving up: short of the value, onto it, through it, from it, away from it
      {50, 20, false, 40, false, false, 50, false},
      {50, 20, false, 50, false, true, 50, true},
      {50, 40, false, 60, false, true, 60, true},
      {50, 50, false, 70, false, true, 70, true},
      {50, 60, false, 70, false, false, 50, false},
      // moving down
      {50, 80, false, 60, false, false, 50, false},
      {50, 80, false, 50, false, true, 50, true},
      {50, 80, false, 30, false, true, 30, true},
      {50, 50, false, 30, false, true, 30, true},
      {50, 30, false, 10, false, false, 50, false},
      // standing still, one beside the value
      {50, 49, false, 49, false, false, 50, false},
      {50, 50, false, 50, false, true, 50, true},
      {50, 51, false, 51, false, false, 50, false},
      // engaged: follows wherever it goes
      {50, 50, true, 90, false, true, 90, true},
      {50, 90, true, 100, false, true, 100, true},
      {50, 10, true, 0, false, true, 0, true},
      // forced: follows and leaves engaged as it is
      {50, 20, false, 30, true, true, 30, false},
      {50, 20, false, 70, true, true, 70, false},
      {50, 20, true, 30, true, true, 30, true},
      // no range is put on values
      {-5, -10, false, 200, false, true, 200, true},
      {2000000000, -2000000000, false, 2147483647, false, true, 2147483647, true},
  };
  return table;
}

TEST(clsFaderCatchTest, CatchesWhenAMoveStartsAtEndsAtOrPassesTheStoredValue) {
  for (const Move& move : Moves()) {
    SCOPED_TRACE(testing::Message() << move.model << " from " << move.outer << " to " << move.to
                                    << (move.engaged ? " engaged" : "") << (move.forced ? " forced" : ""));
    const auto fader = FaderAt(move.model, move.outer, move.engaged);
    EXPECT_EQ(fader->SetValue(move.to, move.forced), move.caught);
    EXPECT_EQ(fader->value(), move.modelAfter);
    EXPECT_EQ(fader->Engaged(), move.engagedAfter);
  }
}

TEST(clsFaderCatchTest, RemembersThePositionOfAMoveThatDidNotCatch) {
  const auto fader = FaderAt(50, 20);
  EXPECT_FALSE(fader->SetValue(40));
  EXPECT_TRUE(fader->SetValue(60));
  EXPECT_EQ(fader->value(), 60);
  EXPECT_TRUE(fader->Engaged());
}

TEST(clsFaderCatchTest, ANewFaderCatchesOnItsFirstMove) {
  const auto fader = MakeRef<clsFaderCatch>();
  fader->Init();
  EXPECT_EQ(fader->value(), 0);
  EXPECT_FALSE(fader->Engaged());
  EXPECT_TRUE(fader->SetValue(35));
  EXPECT_EQ(fader->value(), 35);
}

TEST(clsFaderCatchTest, InitForgetsEverything) {
  const auto fader = FaderAt(50, 90, true);
  fader->Init();
  EXPECT_EQ(fader->value(), 0);
  EXPECT_FALSE(fader->Engaged());
  EXPECT_TRUE(fader->SetValue(10)) << "the outer value is 0 again";
}

TEST(clsFaderCatchTest, AForcedSetLeavesItDisengagedAndTheNextMoveCatches) {
  const auto fader = FaderAt(50, 20);
  EXPECT_TRUE(fader->SetValue(70, true));
  EXPECT_FALSE(fader->Engaged());
  EXPECT_TRUE(fader->SetValue(10));
  EXPECT_EQ(fader->value(), 10);
  EXPECT_TRUE(fader->Engaged());
}

TEST(clsFaderCatchTest, PauseDisengagesAndKeepsValues) {
  const auto fader = FaderAt(50, 50, true);
  fader->PauseTracking();
  EXPECT_FALSE(fader->Engaged());
  EXPECT_EQ(fader->value(), 50);
  EXPECT_TRUE(fader->SetValue(80)) << "the outer value is still 50";
}

TEST(clsFaderCatchTest, ResumeSaysWhetherThePositionIsTheValueAndDoesNotEngage) {
  const auto fader = FaderAt(50, 0);
  EXPECT_TRUE(fader->ResumeTracking(50));
  EXPECT_FALSE(fader->Engaged());
  EXPECT_FALSE(fader->ResumeTracking(51));
  EXPECT_FALSE(fader->SetValue(60)) << "it moves on from 51";
  const auto engaged = FaderAt(50, 50, true);
  EXPECT_FALSE(engaged->ResumeTracking(10));
  EXPECT_TRUE(engaged->Engaged());
}

TEST(clsFaderCatchTest, SetOuterValueEngagesExactlyOnTheValueAndAnswersNothing) {
  const auto fader = FaderAt(50, 0);
  EXPECT_TRUE(fader->SetOuterValue(50).IsEmpty());
  EXPECT_TRUE(fader->Engaged());
  fader->SetOuterValue(10);
  EXPECT_FALSE(fader->Engaged());
  EXPECT_EQ(fader->value(), 50);
}

}  // namespace
}  // namespace vestrel
