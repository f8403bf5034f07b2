// A scene with objects of the host that the library alone still holds: whatever lets go of one runs the
// host's code.
#pragma once

#include <cstdint>
#include <functional>

#include "core/Cast.h"
#include "tests/scenarios/Scene.h"
#include "tests/support/Ending.h"

namespace vestrel::test {

class GoingScene {
 public:
  GoingScene(MemoryFiles& files, FakeHostServices& services, FakeClock& clock)
      : scene(files, services, clock, [this](SimulatedHost& host) { SendIn(host); }) {
    Plant();
    LetGo();
  }
  // Nothing is told of what goes with the scene.
  ~GoingScene() { atEnd = nullptr; }
  GoingScene(const GoingScene&) = delete;
  GoingScene& operator=(const GoingScene&) = delete;

  // Puts more of them in what is recorded, watched and played, and in slots that items have left.
  void Plant() {
    PlantEvents();
    if (!scene.controller) return;
    const Ref<clsPage> page = scene.controller->PageManager()->CurrentPage();
    for (const std::int32_t group : {0, 1, 2, 9}) {
      PlantBehind(page->ButtonGroups(group)->buttons, 1);
      PlantBehind(page->ButtonGroups(group)->nowPlayingList, 3);
    }
  }

  // Puts one in the lists themselves, of which the library is not told when it is played.
  void PlantInLists() {
    const Ref<clsPage> page = scene.controller->PageManager()->CurrentPage();
    for (const std::int32_t group : {0, 1, 2, 9}) {
      const Ref<clsButton> button = GoingButton();
      button->groupIndex = group;
      button->buttonIndex = 8;
      button->name = u"Guest";
      page->ButtonGroups(group)->buttons->AddItem(button.get());
      PlantBehind(page->ButtonGroups(group)->buttons, 1);
    }
  }

  // Called at each end.
  std::function<void()> atEnd;
  Scene scene;

 private:
  std::function<void()> End() {
    return [this] {
      if (const auto work = atEnd) work();
    };
  }
  void SendIn(SimulatedHost& host) {
    host.form = MakeRef<Ending<RecordingForm>>(End(), host.transcript);
    host.lamps = MakeRef<Ending<RecordingLamps>>(End(), host.transcript);
    host.transport = MakeRef<Ending<RecordingTransport>>(End(), host.transcript);
    host.assignment = MakeRef<Ending<RecordingAssignment>>(End(), host.transcript);
  }
  Ref<clsButton> GoingButton() {
    Ref<clsButton> button = MakeRef<clsButton>();
    button->Init(MakeRef<Ending<IButtonEventHandler>>(End()).get(), scene.page.get());
    return button;
  }
  void PlantEvents() {
    const Ref<clsObjectList> events = scene.record->EventList();
    for (std::int32_t time = 0; time < 3; ++time) {
      const Ref<vxEvent> event = MakeRef<vxEvent>();
      event->Init(time, GoingButton().get(), vxEvent_ButtonOn);
      events->AddItem(event.get());
    }
    const Ref<Object> handed = MakeRef<Ending<IObjListEventHandler>>(End());
    events->SetEventHandler(MakeRef<Ending<IObjListEventHandler>>(End()).get(), handed.get());
    scene.record->ButtonPlaystateChanged(GoingButton().get(), PSEventSource_User, 1, 0, 0, 0);
  }
  void PlantBehind(const Ref<clsObjectList>& list, int count) {
    if (!list) return;
    for (int i = 0; i < count; ++i) list->AddItem(GoingButton().get());
    for (int i = 0; i < count; ++i) list->Remove(-1);
  }
  void LetGo() {
    scene.controller->setModeAssign(u"Fresh", ButtonType_Auto, scene.assignment.get());
    scene.form = MakeRef<RecordingForm>(scene.transcript);
    scene.lamps = MakeRef<RecordingLamps>(scene.transcript);
    scene.transport = MakeRef<RecordingTransport>(scene.transcript);
    scene.assignment = MakeRef<RecordingAssignment>(scene.transcript);
    scene.page = &Cast<clsPage>(scene.controller->PageManager()->PageList()->GetItem(1).get());
  }
};

}  // namespace vestrel::test
