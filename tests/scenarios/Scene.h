// A show in the middle of an evening with a host whose callbacks can call back: two pages, buttons in top,
// screen and bump groups of which some play, an edit button, a recording under way. What the re-entrancy
// tests start from.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controller/clsButtonGroupController.h"
#include "recording/clsRecordController.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/RecordingForm.h"

namespace vestrel::test {

class Scene {
 public:
  // Files and host services of the test; they outlive the scene.
  Scene(MemoryFiles& files, FakeHostServices& services, FakeClock& clock);
  Scene(const Scene&) = delete;
  Scene& operator=(const Scene&) = delete;
  ~Scene();

  // Called inside every callback of the host, pumped messages included, with its name.
  std::function<void(const std::string& callback)> onCallback;

  MemoryFiles& files;
  FakeClock& clock;
  Transcript transcript;
  Ref<RecordingForm> form = MakeRef<RecordingForm>(transcript);
  Ref<RecordingLamps> lamps = MakeRef<RecordingLamps>(transcript);
  Ref<RecordingTransport> transport = MakeRef<RecordingTransport>(transcript);
  Ref<RecordingAssignment> assignment = MakeRef<RecordingAssignment>(transcript);
  Ref<clsRecordController> record = MakeRef<clsRecordController>();
  Ref<clsButtonGroupController> controller = MakeRef<clsButtonGroupController>();
  // Of the page that was current at first.
  Ref<clsPage> page;
  Ref<clsButton> intro;     // group 2, index 1, the edit button
  Ref<clsButton> chase;     // group 2, index 2, playing
  Ref<clsButton> top;       // group 0, index 1
  Ref<clsButton> bump;      // group 9, index 1
  Ref<clsObjectList> list;  // a list that a host made

  // What does not hold of the show as it is now, in words; empty when all is well. Sends all lamps anew.
  std::string Faults();

 private:
  void Listen();
  std::string LampFaults();

  FakeHostServices& services_;
};

// Something a host may do at any time.
struct HostAction {
  const char* name;
  void (*run)(Scene& scene);
};

// Every public operation that a host may call, with arguments that make it do something.
const std::vector<HostAction>& HostActions();

}  // namespace vestrel::test
