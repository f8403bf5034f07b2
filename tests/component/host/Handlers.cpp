// The interfaces between buttons, controller and recorder as hosts implement them in the library's place: by
// name, and by the interface itself.
#include "tests/component/host/EarlyHandlers.h"
#include "tests/component/host/Program.h"

namespace host {
namespace {

Value ButtonOf(const Value& page, int group, const Value& handler) {
  const Value button = Create(L"clsButton");
  Call(button, L"InitWithValues", {page, group, 3, L"Intro", 1, handler});
  return button;
}

// Every operation of a button's handler, with all of its arguments.
void ButtonHandlers() {
  AnyHost<EarlyButtonHandler> handler({L"PlayStateChanged", L"LockStateChanged", L"FaderModeChanged",
                                       L"FaderValueChanged", L"DeferPlaystateFor"});
  {
    const Value page = Create(L"clsPage");
    const Value button = ButtonOf(page, 9, handler.object());
    Call(button, L"setPlayState", {1, 1, 2, 4, 1.5, 2.5, Missing(), true});
    handler.Expect(L"PlayStateChanged(<Intro>,1,2,4,1.5,2.5,True)");
    Call(button, L"click", {1, 0, 0.0, 0.25});
    handler.Expect(L"PlayStateChanged(<Intro>,0,1,0,0,0.25,False)");
    Put(button, L"FaderMode", 2);
    handler.Expect(L"FaderModeChanged(<Intro>)");
    Put(button, L"BumpMode", 1);
    Call(button, L"press");
    handler.Expect(L"FaderValueChanged(<Intro>,True)");
    const Value ini = Create(L"clsIniFile");
    Call(ini, L"UseFile", {(folder + L"handlers.ini").c_str()});
    Call(button, L"saveToINI", {ini});
    Call(button, L"loadFromINI", {ini, 9, 4});
    handler.Expect(L"DeferPlaystateFor(<clsPage>,<Intro>,1,100)");
    Put(button, L"Locked", true);
    handler.Expect(L"LockStateChanged(<Intro>)");
  }
  CHECK_EQ(handler.references(), 1UL);
}

// The recorder that a controller tells of every change is the host's own.
void Recorders() {
  AnyHost<EarlyRecorder> recorder({L"ButtonPlaystateChanged"});
  {
    const Value controller = Create(L"clsButtonGroupController");
    const std::wstring root = folder.substr(0, folder.size() - 1);
    Call(controller, L"Init",
         {Create(L"IFormSequenceShortcuts"), root.c_str(), Create(L"ILEDSetter"), recorder.object()});
    Call(controller, L"setButtonGroupPageSize", {4});
    Call(controller, L"CreateNewShow", {L"Handlers"});
    Call(controller, L"SetPage", {L"One"});
    Call(controller, L"assignButton", {1, 1, L"Intro", 1});
    Call(controller, L"controlClicked", {33, 1, 4, 2.5, 3.5});
    recorder.Expect(L"ButtonPlaystateChanged(<Intro>,0,1,4,2.5,3.5)");
  }
  CHECK_EQ(recorder.references(), 1UL);
}

int Run(const wchar_t* dataFolder) {
  for (Door* next : {&LateBound(), &ThroughTypeLibrary()}) {
    door = next;
    folder = std::wstring(dataFolder) + (next == &LateBound() ? L"\\late" : L"\\early");
    CreateDirectoryW(folder.c_str(), nullptr);
    folder += L"\\";
    Call(Create(L"VestrelStatic"), L"Init", {(folder + L"log.txt").c_str()});
    ButtonHandlers();
    Recorders();
  }
  return Totals("handlers");
}

}  // namespace
}  // namespace host

// Handlers FOLDER: an empty folder for data.
int wmain(int count, wchar_t** arguments) {
  return host::Program(count == 2, [&] { return host::Run(arguments[1]); });
}
