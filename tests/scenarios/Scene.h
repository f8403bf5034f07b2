// A show in the middle of an evening with a host whose callbacks can call back: two pages, buttons in top,
// screen and bump groups of which some play, an edit button, a recording under way. What the re-entrancy
// tests start from.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/support/FakePlatform.h"
#include "tests/support/SimulatedHost.h"

namespace vestrel::test {

class Scene : public SimulatedHost {
 public:
  // Files and host services of the test; they outlive the scene. `cast` may put objects of its own in the
  // host's places before they are used.
  Scene(MemoryFiles& files, FakeHostServices& services, FakeClock& clock,
        const std::function<void(SimulatedHost&)>& cast = {});
  Scene(const Scene&) = delete;
  Scene& operator=(const Scene&) = delete;
  ~Scene();

  // Called inside every callback of the host, pumped messages included, with its name.
  std::function<void(const std::string& callback)> onCallback;

  MemoryFiles& files;
  FakeClock& clock;
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
