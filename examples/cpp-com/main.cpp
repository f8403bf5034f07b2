// A small host in C++ that uses the component server through its virtual tables: makes a show, puts buttons
// on its page, clicks and presses them, and prints every callback. Prints examples/transcript.txt.
//
//   com_host FOLDER    an empty folder for the show and the log
#include <string_view>

#include "examples/cpp-com/Host.h"

namespace example {
namespace {

using com::By;
using com::Check;
using com::Text;
using Controller = com::Pointer<_clsButtonGroupController>;

void Step(std::string_view text) {
  std::cout << "> " << text << "\n";
}

void Click(const Controller& controller, LONG controlIndex, float x, float y) {
  // A null pointer leaves an optional argument out.
  Check(controller->controlClicked(&controlIndex, By<short>(1), By<short>(0), &x, &y, nullptr, nullptr,
                                   nullptr));
}

void SetEditing(const Controller& controller, bool enabled) {
  Check(controller->setModeEditing(By<VARIANT_BOOL>(enabled ? VARIANT_TRUE : VARIANT_FALSE)));
}

void Assign(const Controller& controller, LONG groupIndex, LONG slot, const wchar_t* name,
            ButtonTypeEnum type) {
  Check(controller->assignButton(&groupIndex, &slot, Text(name).by(), &type));
}

Controller SetUp(const std::wstring& folder) {
  Step("Init");
  Check((com::Create<VestrelStatic, _VestrelStatic>()->Init(Text(folder + L"\\host.log").by())));
  // This host has no transport bar: the empty one that the library offers does.
  auto bar = com::Create<IRecordEventHandler, _IRecordEventHandler>();
  auto recorder = com::Create<clsRecordController, _clsRecordController>();
  Check(recorder->Init(bar.by()));
  Controller controller = com::Create<clsButtonGroupController, _clsButtonGroupController>();
  auto form = Form::Make(controller.get());
  auto lamps = Lamps::Make();
  auto asInterface = com::As<_IRecordController>(recorder);
  Check(controller->Init(form.by(), Text(folder).by(), lamps.by(), asInterface.by()));
  Check(controller->setButtonGroupPageSize(By<LONG>(4)));
  Step("CreateNewShow");
  Check(controller->CreateNewShow(Text(L"Gala").by()));
  Step("SetPage");
  Check(controller->SetPage(Text(L"Overture").by()));
  return controller;
}

void PutButtons(const Controller& controller) {
  Step("setModeAssign: the operator picks the place of Harbour");
  auto assignment = Assignment::Make();
  Check(controller->setModeAssign(Text(L"Harbour").by(), By(ButtonType_Sequence), assignment.by()));
  Step("controlClicked 33");
  Click(controller, 33, 120, 40);
  SetEditing(controller, false);  // the mode outlives the placement
  Step("assignButton: Lighthouse, Blackout and Strobe are put in place");
  Assign(controller, 1, 2, L"Lighthouse", ButtonType_Multi);
  Assign(controller, 0, 17, L"Blackout", ButtonType_Auto);
  Assign(controller, 9, 1, L"Strobe", ButtonType_Sequence);
}

void Play(const Controller& controller) {
  Step("controlClicked 33");
  Click(controller, 33, 120, 40);
  Step("controlClicked 34");
  Click(controller, 34, 130, 40);
  Step("TimerTick: one blink");
  com::Pointer<_LEDManager> lamps;
  Check(controller->get_mLEDManager(lamps.out()));
  Check(lamps->TimerTick());
  Step("ToggleBumpMode of the button at control 17");
  SetEditing(controller, true);
  Click(controller, 17, 0, 0);
  Check(controller->ToggleBumpMode());
  Step("controlPressed 17");
  Check(controller->controlPressed(By<LONG>(17)));
  Step("controlReleased 17");
  Check(controller->controlReleased(By<LONG>(17)));
  Step("controlPressed 65, the button of bump fader 1");
  Check(controller->controlPressed(By<LONG>(65)));
  Step("controlReleased 65");
  Check(controller->controlReleased(By<LONG>(65)));
  Step("groupFaderChanged 1 50");
  Check(controller->groupFaderChanged(By<LONG>(1), By<LONG>(50)));
}

void Refuse(const Controller& controller) {
  Step("assignButton at slot 41 of four times ten");
  try {
    Assign(controller, 2, 41, L"Nowhere", ButtonType_Sequence);
  } catch (const com::Failure& failure) {
    std::cout << "  error " << failure.number() << ": " << Narrow(failure.description) << "\n";
  }
}

void Run(const std::wstring& folder) {
  const Controller controller = SetUp(folder);
  PutButtons(controller);
  Play(controller);
  Refuse(controller);
  Step("formShutdown");
  Check(controller->formShutdown());
  Step("done");
}

}  // namespace
}  // namespace example

int wmain(int count, wchar_t** arguments) {
  if (count != 2) {
    std::cerr << "usage: com_host FOLDER\n";
    return 2;
  }
  // The library lives in the apartment of the thread that creates its objects.
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  int result = 0;
  try {
    example::Run(arguments[1]);
  } catch (const com::Failure& failure) {
    std::cerr << "failed with " << std::hex << failure.code << ": " << example::Narrow(failure.description)
              << "\n";
    result = 1;
  }
  CoUninitialize();
  return result;
}
