// When the server may be unloaded, and calls from other apartments.
#include "tests/component/host/Check.h"
#include "tests/component/host/EarlyForm.h"
#include "tests/component/host/Program.h"

namespace host {
namespace {

std::wstring dataFolder;
using CanUnload = HRESULT(STDMETHODCALLTYPE*)();

HRESULT MayUnload() {
  const auto entry = reinterpret_cast<CanUnload>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"Vestrel.dll"), "DllCanUnloadNow")));
  return entry == nullptr ? E_NOTIMPL : entry();
}

void Objects() {
  auto list = New<clsObjectList, _clsObjectList>();
  CHECK_EQ(MayUnload(), S_FALSE);
  auto box = New<clsLong, _clsLong>().As<IDispatch>();
  LONG at = -1;
  CHECK_EQ(list->AddItem(box.by(), &at), S_OK);
  box = {};
  CHECK_EQ(MayUnload(), S_FALSE);
  list = {};
  CHECK_EQ(MayUnload(), S_OK);
}

// An object that is handed out, let go of by the host and handed out again.
void HandedOutAgain() {
  auto list = New<clsObjectList, _clsObjectList>();
  auto box = New<clsLong, _clsLong>();
  box->put_value(5);
  auto item = box.As<IDispatch>();
  LONG at = -1;
  list->AddItem(item.by(), &at);
  box = {};
  item = {};
  for (int i = 0; i < 3; ++i) {
    CHECK_EQ(list->GetItem(By(LONG{0}), item.out()), S_OK);
    LONG number = 0;
    item.As<_clsLong>()->get_value(&number);
    CHECK_EQ(number, 5L);
    item = {};
  }
  list = {};
  CHECK_EQ(MayUnload(), S_OK);
}

void Locks() {
  Pointer<IClassFactory> factory;
  CHECK_EQ(CoGetClassObject(__uuidof(clsLong), CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                            reinterpret_cast<void**>(factory.out())),
           S_OK);
  CHECK_EQ(factory->LockServer(TRUE), S_OK);
  CHECK_EQ(factory->LockServer(TRUE), S_OK);
  CHECK_EQ(MayUnload(), S_FALSE);
  CHECK_EQ(factory->LockServer(FALSE), S_OK);
  CHECK_EQ(MayUnload(), S_FALSE);
  CHECK_EQ(factory->LockServer(FALSE), S_OK);
  CHECK_EQ(MayUnload(), S_OK);
  Pointer<IUnknown> object;
  auto outer = New<clsLong, _clsLong>();
  CHECK_EQ(factory->CreateInstance(outer.get(), IID_IUnknown, reinterpret_cast<void**>(object.out())),
           CLASS_E_NOAGGREGATION);
  CHECK_EQ(factory->CreateInstance(nullptr, __uuidof(_clsButton), reinterpret_cast<void**>(object.out())),
           E_NOINTERFACE);
}

struct Stage {
  CallLog log;
  EarlyForm form{log};
  EarlyLamps lamps{log};
  EarlyBar bar{log};
  Pointer<_clsRecordController> recorder = New<clsRecordController, _clsRecordController>();
  Pointer<_clsButtonGroupController> controller = New<clsButtonGroupController, _clsButtonGroupController>();

  Stage() {
    _IRecordEventHandler* transport = &bar;
    recorder->Init(&transport);
    _IFormSequenceShortcuts* screen = &form;
    _ILEDSetter* setter = &lamps;
    auto record = recorder.As<_IRecordController>();
    CHECK_EQ(controller->Init(&screen, Text(dataFolder).by(), &setter, record.by()), S_OK);
    controller->setButtonGroupPageSize(By(LONG{4}));
  }
  void NewShow() {
    CHECK_EQ(controller->CreateNewShow(Text(L"Show").by()), S_OK);
    CHECK_EQ(controller->SetPage(Text(L"One").by()), S_OK);
    CHECK_EQ(controller->assignButton(By(LONG{1}), By(LONG{1}), Text(L"Intro").by(), By(ButtonType_Sequence)),
             S_OK);
    CHECK_EQ(controller->controlClicked(By(LONG{33}), By(short{1}), By(short{0}), By(0.0F), By(0.0F), nullptr,
                                        nullptr, nullptr),
             S_OK);
  }
};

void ManyShows(int count) {
  Stage stage;
  for (int i = 0; i < count; ++i) stage.NewShow();
  CHECK_EQ(MayUnload(), S_FALSE);
  stage.controller = {};
  stage.recorder = {};
  CHECK_EQ(MayUnload(), S_OK);
  CHECK_EQ(stage.form.references, 1UL);
  CHECK_EQ(stage.lamps.references, 1UL);
  CHECK_EQ(stage.bar.references, 1UL);
}

// The host goes without having disconnected anything, and in the wrong order.
void LeftConnected() {
  Stage stage;
  stage.NewShow();
  stage.recorder = {};
  Pointer<_clsButton> button;
  CHECK_EQ(stage.controller->buttonWithIndex(By(LONG{1}), By(LONG{1}), button.out()), S_OK);
  stage.controller = {};
  CHECK_EQ(MayUnload(), S_FALSE);
  // Its page and controller are gone.
  button->click(By(short{1}), By(short{0}), By(0.0F), By(0.0F));
  Text name;
  CHECK_EQ(button->get_name(name.out()), S_OK);
  CHECK_EQ(name.str(), L"Intro");
  button = {};
  CHECK_EQ(MayUnload(), S_OK);
  CHECK_EQ(stage.form.references, 1UL);
  CHECK_EQ(stage.lamps.references, 1UL);
  CHECK_EQ(stage.bar.references, 1UL);
}

// ---- Apartments. The objects live in the main thread, which waits with its messages served.

DWORD mainThread = 0;

void WaitFor(HANDLE thread) {
  DWORD which = 0;
  CHECK_EQ(CoWaitForMultipleHandles(0, 30000, 1, &thread, &which), S_OK);
  CloseHandle(thread);
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
// Notes the threads in which it is asked.
class ThreadPredicate final : public EarlyHost<_IObjectPredicate> {
 public:
  DWORD thread = 0;
  HRESULT STDMETHODCALLTYPE IsTrueFor(IDispatch** /*obj*/, VARIANT_BOOL* result) override {
    thread = GetCurrentThreadId();
    *result = VARIANT_TRUE;
    return S_OK;
  }
};
#pragma GCC diagnostic pop

struct Crossing {
  IStream* stream = nullptr;
  DWORD model = COINIT_MULTITHREADED;
  void (*use)(Crossing& crossing) = nullptr;
  DWORD callbackThread = 0;
  LONG size = -1;
  LONG found = -1;
  std::wstring joined;
  HRESULT failure = S_OK;
  HRESULT withNulls = S_OK;
  HRESULT withValues = S_OK;
  TUIFaderValues faders{};
  HRESULT code = E_UNEXPECTED;
};

// Runs in another apartment: the list is used through its proxy.
void UseList(Crossing& crossing) {
  Pointer<_clsObjectList> list;
  crossing.code = CoGetInterfaceAndReleaseStream(crossing.stream, __uuidof(_clsObjectList),
                                                 reinterpret_cast<void**>(list.out()));
  if (FAILED(crossing.code)) return;
  list->Size(&crossing.size);
  ThreadPredicate predicate;
  _IObjectPredicate* where = &predicate;
  crossing.code = list->FirstIndexWhere(&where, &crossing.found);
  crossing.callbackThread = predicate.thread;
  Text joined;
  VARIANT leftOut;
  V_VT(&leftOut) = VT_ERROR;
  V_ERROR(&leftOut) = DISP_E_PARAMNOTFOUND;
  list->JoinStrings(Text(L"-").by(), &leftOut, joined.out());
  crossing.joined = joined.str();
  crossing.withNulls = list->SortInPlace(nullptr, nullptr, nullptr);
  _IObjectComparator* comparator = nullptr;
  crossing.withValues = list->SortInPlace(&comparator, By(false), Text(L"all").by());
  SAFEARRAY* array = nullptr;
  list->Clear();
  crossing.failure = list->AsArray(&array);
}

// The record travels there and back.
void UseFaders(Crossing& crossing) {
  Pointer<_clsButtonGroupController> controller;
  crossing.code = CoGetInterfaceAndReleaseStream(crossing.stream, __uuidof(_clsButtonGroupController),
                                                 reinterpret_cast<void**>(controller.out()));
  if (FAILED(crossing.code)) return;
  crossing.faders.GroupFaders[0] = 77;
  crossing.code = controller->GetUIFaderValues(&crossing.faders);
}

DWORD WINAPI OtherApartment(void* data) {
  auto& crossing = *static_cast<Crossing*>(data);
  CoInitializeEx(nullptr, crossing.model);
  crossing.use(crossing);
  CoUninitialize();
  return 0;
}

void FromAnotherApartment(DWORD model) {
  auto list = New<clsObjectList, _clsObjectList>();
  auto text = New<clsString, _clsString>();
  text->put_value(Text(L"only").get());
  auto item = text.As<IDispatch>();
  LONG at = -1;
  list->AddItem(item.by(), &at);
  Crossing crossing;
  crossing.model = model;
  crossing.use = UseList;
  CHECK_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(_clsObjectList), list.get(), &crossing.stream),
           S_OK);
  DWORD other = 0;
  WaitFor(CreateThread(nullptr, 0, OtherApartment, &crossing, 0, &other));
  CHECK_EQ(crossing.code, S_OK);
  CHECK_EQ(crossing.size, 1L);
  CHECK_EQ(crossing.found, 0L);
  if (model == COINIT_APARTMENTTHREADED) CHECK_EQ(crossing.callbackThread, other);
  CHECK(crossing.callbackThread != mainThread);
  CHECK_EQ(crossing.joined, L"only");
  CHECK_EQ(crossing.failure, static_cast<HRESULT>(0x800A0009));
  CHECK_EQ(crossing.withNulls, HRESULT_FROM_WIN32(RPC_X_NULL_REF_POINTER));
  CHECK_EQ(crossing.withValues, S_OK);
}

void FadersFromAnotherApartment() {
  Stage stage;
  stage.log.Taken();
  Crossing crossing;
  crossing.use = UseFaders;
  CHECK_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(_clsButtonGroupController), stage.controller.get(),
                                                 &crossing.stream),
           S_OK);
  WaitFor(CreateThread(nullptr, 0, OtherApartment, &crossing, 0, nullptr));
  CHECK_EQ(crossing.code, S_OK);
  CHECK_EQ(stage.log.Taken(), L"GetUIFaderValues(77);");
  CHECK_EQ(crossing.faders.GroupFaders[7], 80L);
  CHECK_EQ(crossing.faders.BumpFaders[0], 1L);
}

// An object made in an apartment that is no home for it.
DWORD WINAPI MakeInFreeThread(void* data) {
  auto& crossing = *static_cast<Crossing*>(data);
  CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  {
    auto list = New<clsObjectList, _clsObjectList>();
    crossing.code = list ? list->Size(&crossing.size) : E_FAIL;
  }
  CoUninitialize();
  return 0;
}

void MadeElsewhere() {
  Crossing crossing;
  WaitFor(CreateThread(nullptr, 0, MakeInFreeThread, &crossing, 0, nullptr));
  CHECK_EQ(crossing.code, S_OK);
  CHECK_EQ(crossing.size, 0L);
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
// Does something when it is asked.
class ActingPredicate final : public EarlyHost<_IObjectPredicate> {
 public:
  std::function<void()> action;
  HRESULT STDMETHODCALLTYPE IsTrueFor(IDispatch** /*obj*/, VARIANT_BOOL* result) override {
    action();
    *result = VARIANT_TRUE;
    return S_OK;
  }
};
#pragma GCC diagnostic pop

HRESULT AskByName(IDispatch* list, IDispatch* predicate) {
  auto* name = const_cast<LPOLESTR>(L"FirstIndexWhere");
  DISPID id = 0;
  list->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  VARIANT argument;
  V_VT(&argument) = VT_DISPATCH;
  V_DISPATCH(&argument) = predicate;
  DISPPARAMS parameters{&argument, nullptr, 1, 0};
  return list->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                      nullptr);
}

// A callback lets go of the last object that the host holds. The call in progress still needs the module.
void LetGoDuringACall() {
  for (const bool byName : {false, true}) {
    auto list = New<clsObjectList, _clsObjectList>();
    ActingPredicate predicate;
    HRESULT during = E_UNEXPECTED;
    predicate.action = [&] {
      list = {};
      during = MayUnload();
    };
    // The host's own object: no object of the library's goes out with the call.
    IDispatch* item = &predicate;
    LONG at = -1;
    CHECK_EQ(list->AddItem(&item, &at), S_OK);
    _IObjectPredicate* where = &predicate;
    _clsObjectList* called = list.get();
    CHECK_EQ(byName ? AskByName(called, where) : called->FirstIndexWhere(&where, &at), S_OK);
    CHECK_EQ(during, S_FALSE);
    CHECK_EQ(MayUnload(), S_OK);
    CHECK_EQ(predicate.references, 1UL);
  }
}

void FreeUnused() {
  CHECK_EQ(MayUnload(), S_OK);
  CoFreeUnusedLibrariesEx(0, 0);
  CoFreeUnusedLibrariesEx(0, 0);
}

void Unloads() {
  Objects();
  FreeUnused();
  CHECK(GetModuleHandleW(L"Vestrel.dll") == nullptr);
}

DWORD WINAPI ShowsOfAThread(void* /*data*/) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  CHECK_EQ((New<VestrelStatic, _VestrelStatic>()->Init(Text(dataFolder + L"\\thread.txt").by())), S_OK);
  ManyShows(10);
  FreeUnused();
  CoUninitialize();
  return 0;
}

// A thread that opened a log ends, after COM let go of the module and before the process does. Its log is
// closed by the module, which therefore stays.
void AThreadEndsWithItsLog() {
  WaitFor(CreateThread(nullptr, 0, ShowsOfAThread, nullptr, 0, nullptr));
  FreeUnused();
  CHECK(GetModuleHandleW(L"Vestrel.dll") != nullptr);
  CHECK(DeleteFileW((dataFolder + L"\\thread.txt").c_str()) != FALSE);
  HandedOutAgain();
}

// The log that a thread has opened is there as long as the thread, whatever becomes of the objects.
void TheLogStays() {
  auto helper = New<VestrelStatic, _VestrelStatic>();
  CHECK_EQ(helper->Init(Text(dataFolder + L"\\log.txt").by()), S_OK);
  helper = {};
  FreeUnused();
  helper = New<VestrelStatic, _VestrelStatic>();
  CHECK_EQ(helper->Log(Text(L"still there").by(), nullptr), S_OK);
}

int Run(const wchar_t* folder) {
  dataFolder = folder;
  mainThread = GetCurrentThreadId();
  Unloads();
  AThreadEndsWithItsLog();
  TheLogStays();
  HandedOutAgain();
  Locks();
  ManyShows(100);
  LeftConnected();
  LetGoDuringACall();
  FromAnotherApartment(COINIT_APARTMENTTHREADED);
  FromAnotherApartment(COINIT_MULTITHREADED);
  FadersFromAnotherApartment();
  MadeElsewhere();
  return Totals("lifetime");
}

}  // namespace
}  // namespace host

// Lifetime FOLDER: an empty folder for data.
int wmain(int count, wchar_t** arguments) {
  return host::Program(count == 2, [&] { return host::Run(arguments[1]); });
}
