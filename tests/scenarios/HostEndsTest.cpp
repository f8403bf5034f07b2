// Objects of a host that the library alone still holds: whatever lets go of one runs the host's code, which
// calls every public operation. Afterwards the show is consistent, nothing has leaked and the controller
// still works.
#include <gtest/gtest.h>

#include <cstddef>

#include "core/Error.h"
#include "tests/scenarios/GoingScene.h"
#include "tests/support/Scale.h"
#include "util/modLog.h"

namespace vestrel::test {
namespace {

// A failing operation is the host's own affair.
template <class Action>
void Try(Action action) {
  try {
    action();
  } catch (const Error&) {
  }
}

class HostEndsTest : public TestPlatform, public testing::WithParamInterface<std::size_t> {
 protected:
  HostEndsTest() {
    files.PutFolder(u"C:\\app");
    modLog::Init(u"C:\\log.txt");
    modLog::SetLogLevel(LogLevel_1_SEVERE);
  }

  // Runs an operation with another inside the first end that comes. Answers whether one came.
  bool RunPair(const HostAction& trigger, const HostAction& inside) {
    GoingScene going(files, hostServices, clock);
    Scene& scene = going.scene;
    bool came = false;
    going.atEnd = [&] {
      going.atEnd = nullptr;
      came = true;
      Try([&] { inside.run(scene); });
    };
    Try([&] { trigger.run(scene); });
    going.atEnd = nullptr;
    if (!scene.controller) return came;
    EXPECT_EQ(scene.Faults(), "");
    Try([&] { scene.controller->controlClicked(37, 1, 0, 0, 0); });
    Try([&] { scene.controller->setModeEditing(false); });
    EXPECT_EQ(scene.Faults(), "");
    return came;
  }
};

TEST_P(HostEndsTest, EveryOperationIsServedInsideTheEndThatItBrings) {
  const HostAction& trigger = HostActions()[GetParam()];
  const long before = Object::LiveCount();
  // The quick suite takes every third pair, another third for each row.
  const std::size_t step = RunsLong() ? 1 : 3;
  for (std::size_t i = GetParam() % step; i < HostActions().size(); i += step) {
    const HostAction& inside = HostActions()[i];
    const bool came = RunPair(trigger, inside);
    ASSERT_EQ(Object::LiveCount(), before) << inside.name << " leaks";
    ASSERT_FALSE(HasFailure()) << "in " << trigger.name << ", inside it " << inside.name;
    if (!came) return;
  }
}

INSTANTIATE_TEST_SUITE_P(Operations, HostEndsTest, testing::Range(std::size_t{0}, HostActions().size()));

}  // namespace
}  // namespace vestrel::test
