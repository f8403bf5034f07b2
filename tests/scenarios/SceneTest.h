// What the re-entrancy tests share: a platform for their scenes, and a look at what a scene was left in.
#pragma once

#include <gtest/gtest.h>

#include "core/Error.h"
#include "tests/scenarios/Scene.h"
#include "tests/support/LogFixture.h"

namespace vestrel::test {

class SceneTest : public LogFixture {
 protected:
  SceneTest() {
    files.PutFolder(u"C:\\app");
    modLog::SetLogLevel(LogLevel_1_SEVERE);
  }

  // A failing operation is the host's own affair.
  template <class Action>
  static void Try(Action action) {
    try {
      action();
    } catch (const Error&) {
    }
  }

  // The show is consistent, and still is when the operator goes on.
  static void Check(Scene& scene) {
    scene.onCallback = nullptr;
    if (!scene.controller) return;
    EXPECT_EQ(scene.Faults(), "");
    Try([&] { scene.controller->controlClicked(37, 1, 0, 0, 0); });
    Try([&] { scene.controller->setModeEditing(false); });
    EXPECT_EQ(scene.Faults(), "");
  }
};

}  // namespace vestrel::test
