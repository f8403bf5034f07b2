// Objects of a host that the library alone still holds: whatever lets go of one runs the host's code, which
// calls every public operation. Afterwards the show is consistent, nothing has leaked and the controller
// still works.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <functional>
#include <string>

#include "tests/scenarios/GoingScene.h"
#include "tests/scenarios/SceneTest.h"
#include "tests/support/Scale.h"

namespace vestrel::test {
namespace {

class EndsTest : public SceneTest {
 protected:
  // How many ends an operation brings; `atEnd` is called inside each, counted from 0.
  int EndsOf(const HostAction& trigger, const std::function<void(Scene&, int which)>& atEnd = {}) {
    GoingScene going(files, hostServices, clock);
    going.PlantInLists();
    int ends = 0;
    going.atEnd = [&] {
      const int which = ends++;
      if (atEnd) atEnd(going.scene, which);
    };
    Try([&] { trigger.run(going.scene); });
    going.atEnd = nullptr;
    Check(going.scene);
    return ends;
  }
};

class HostEndsTest : public EndsTest, public testing::WithParamInterface<std::size_t> {};

TEST_P(HostEndsTest, EveryOperationIsServedInsideTheEndsThatItBrings) {
  const HostAction& trigger = HostActions()[GetParam()];
  const long before = Object::LiveCount();
  // The quick suite takes every third pair, another third for each row, inside the first two ends.
  const std::size_t step = RunsLong() ? 1 : 3;
  const int ends = std::min(EndsOf(trigger), RunsLong() ? 16 : 2);
  for (int which = 0; which < ends; ++which) {
    for (std::size_t i = GetParam() % step; i < HostActions().size(); i += step) {
      const HostAction& inside = HostActions()[i];
      const int came = EndsOf(trigger, [&](Scene& scene, int nth) {
        if (nth == which) Try([&] { inside.run(scene); });
      });
      EXPECT_GT(came, which);
      ASSERT_EQ(Object::LiveCount(), before) << inside.name << " leaks";
      ASSERT_FALSE(HasFailure()) << "end " << which << " in " << trigger.name << ", inside it "
                                 << inside.name;
    }
  }
}

// Otherwise the rows above would have nothing to try.
TEST_F(EndsTest, WhatReplacesOrDisplacesBringsEnds) {
  const auto& all = HostActions();
  const auto bringing =
      std::count_if(all.begin(), all.end(), [this](const HostAction& action) { return EndsOf(action) > 0; });
  EXPECT_GE(bringing, 15);
}

std::string NameOf(std::size_t row) {
  std::string name = HostActions()[row].name;
  std::replace_if(
      name.begin(), name.end(), [](unsigned char sign) { return std::isalnum(sign) == 0; }, '_');
  return name + "_" + std::to_string(row);
}

INSTANTIATE_TEST_SUITE_P(Operations, HostEndsTest, testing::Range(std::size_t{0}, HostActions().size()),
                         [](const auto& row) { return NameOf(row.param); });

}  // namespace
}  // namespace vestrel::test
