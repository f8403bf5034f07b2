// A host in C++ that uses the server through the virtual tables of the generated header, and implements the
// callback interfaces by the interfaces themselves.
#include <dispex.h>

#include "tests/component/host/Check.h"
#include "tests/component/host/EarlyForm.h"
#include "tests/component/host/Program.h"
#include "tests/component/host/Registry.h"

namespace host {
namespace {

constexpr HRESULT kNumbered = static_cast<HRESULT>(0x800A0000);
std::wstring dataFolder;

void Works(HRESULT code, const char* what) {
  Checked(code == S_OK, what, "early bound", static_cast<int>(code));
}
#define WORKS(call) Works((call), #call)

struct Raised {
  std::wstring source;
  std::wstring description;
};

// Takes the error information of the thread over.
Raised TakeRaised() {
  Raised result;
  Pointer<IErrorInfo> information;
  if (GetErrorInfo(0, information.out()) != S_OK) return result;
  Text text;
  information->GetSource(text.out());
  result.source = text.str();
  information->GetDescription(text.out());
  result.description = text.str();
  return result;
}

Pointer<_clsLong> Box(LONG number) {
  auto box = New<clsLong, _clsLong>();
  WORKS(box->put_value(number));
  return box;
}

LONG Unboxed(const Pointer<IDispatch>& object) {
  LONG number = -1;
  const auto box = object.As<_clsLong>();
  if (box) box->get_value(&number);
  return number;
}

LONG ItemOf(const Pointer<_clsObjectList>& list, LONG index) {
  Pointer<IDispatch> item;
  WORKS(list->GetItem(By(index), item.out()));
  return Unboxed(item);
}

Pointer<_clsObjectList> ListOf(std::initializer_list<LONG> numbers) {
  auto list = New<clsObjectList, _clsObjectList>();
  for (const LONG number : numbers) {
    LONG at = -1;
    auto item = Box(number).As<IDispatch>();
    WORKS(list->AddItem(item.by(), &at));
  }
  return list;
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

class EarlyPredicate final : public EarlyHost<_IObjectPredicate> {
 public:
  HRESULT STDMETHODCALLTYPE IsTrueFor(IDispatch** obj, VARIANT_BOOL* result) override {
    Pointer<IDispatch> object(*obj);
    *result = Unboxed(object) > 2 ? VARIANT_TRUE : VARIANT_FALSE;
    return answer;
  }
  HRESULT answer = S_OK;
};

class EarlyComparator final : public EarlyHost<_IObjectComparator> {
 public:
  HRESULT STDMETHODCALLTYPE Compare(IDispatch** a, IDispatch** b, LONG* result) override {
    *result = Unboxed(Pointer<IDispatch>(*b)) - Unboxed(Pointer<IDispatch>(*a));
    return S_OK;
  }
};

class EarlyComparable final : public EarlyHost<_IComparable> {
 public:
  explicit EarlyComparable(LONG weight) : weight_(weight) {}
  std::wstring field;
  HRESULT STDMETHODCALLTYPE CompareTo(IDispatch** other, BSTR* name, LONG* result) override {
    field = *name;
    *result = weight_ - static_cast<EarlyComparable*>(*other)->weight_;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE FieldCompare(BSTR* /*name*/, VARIANT* value, LONG* result) override {
    *result = V_VT(value) == VT_I4 && V_I4(value) == weight_ ? 0 : 1;
    return S_OK;
  }

 private:
  LONG weight_;
};

class EarlyObserver final : public EarlyHost<_IObjListEventHandler> {
 public:
  std::wstring seen;
  HRESULT STDMETHODCALLTYPE ItemAdded(_clsObjectList** /*list*/, IDispatch** item, LONG* at,
                                      IDispatch** /*data*/) override {
    seen += L"+" + std::to_wstring(Unboxed(Pointer<IDispatch>(*item))) + L"@" + std::to_wstring(*at);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE ItemRemoved(_clsObjectList** /*list*/, IDispatch** item, LONG* from,
                                        IDispatch** /*data*/) override {
    seen += L"-" + std::to_wstring(Unboxed(Pointer<IDispatch>(*item))) + L"@" + std::to_wstring(*from);
    return S_OK;
  }
};

// A predicate whose plain late binding does not work, as that of some engines' objects; the extended one
// does.
class ExtendedPredicate final : public IDispatchEx {
 public:
  int plainCalls = 0;
  std::wstring names;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    const bool known = id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(IDispatchEx);
    *result = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT /*i*/, LCID /*l*/, ITypeInfo** /*t*/) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*r*/, LPOLESTR* /*n*/, UINT /*c*/, LCID /*l*/,
                                          DISPID* /*i*/) override {
    ++plainCalls;
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID /*id*/, REFIID /*r*/, LCID /*l*/, WORD /*f*/, DISPPARAMS* /*p*/,
                                   VARIANT* /*v*/, EXCEPINFO* /*e*/, UINT* /*a*/) override {
    ++plainCalls;
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetDispID(BSTR name, DWORD flags, DISPID* id) override {
    names += std::wstring(name) + ((flags & fdexNameCaseSensitive) != 0 ? L"!" : L"?");
    // Known in another letter case only.
    const bool fits = (flags & fdexNameCaseInsensitive) != 0 && std::wstring(name) == L"IsTrueFor";
    *id = fits ? 7 : DISPID_UNKNOWN;
    return fits ? S_OK : DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE InvokeEx(DISPID id, LCID /*l*/, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* /*e*/, IServiceProvider* /*s*/) override {
    if (id != 7 || flags != DISPATCH_METHOD || parameters->cArgs != 1) return E_UNEXPECTED;
    V_VT(result) = VT_BOOL;
    V_BOOL(result) = VARIANT_TRUE;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE DeleteMemberByName(BSTR /*n*/, DWORD /*f*/) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DeleteMemberByDispID(DISPID /*i*/) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMemberProperties(DISPID /*i*/, DWORD /*f*/, DWORD* /*p*/) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetMemberName(DISPID /*i*/, BSTR* /*n*/) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNextDispID(DWORD /*f*/, DISPID /*i*/, DISPID* /*n*/) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetNameSpaceParent(IUnknown** /*p*/) override { return E_NOTIMPL; }
};

#pragma GCC diagnostic pop

void Lists() {
  auto list = ListOf({3, 1, 2});
  LONG size = 0;
  WORKS(list->Size(&size));
  CHECK_EQ(size, 3L);
  WORKS(list->SortInPlace(nullptr, nullptr, nullptr));
  CHECK_EQ(ItemOf(list, 0), 1L);
  Pointer<_IObjectComparator> made;
  WORKS(list->SortInPlace(made.by(), By(true), Text(L"all").by()));
  CHECK_EQ(ItemOf(list, 0), 3L);
  CHECK(static_cast<bool>(made.As<_DefaultObjectComparator>()));
  EarlyComparator comparator;
  _IObjectComparator* given = &comparator;
  WORKS(list->Reverse());
  WORKS(list->SortInPlace(&given, nullptr, nullptr));
  CHECK_EQ(ItemOf(list, 0), 3L);
  EarlyPredicate predicate;
  _IObjectPredicate* where = &predicate;
  LONG at = -5;
  WORKS(list->FirstIndexWhere(&where, &at));
  CHECK_EQ(at, 0L);
  Pointer<_clsObjectList> filtered;
  WORKS(list->Filter(&where, filtered.out()));
  WORKS(filtered->Size(&size));
  CHECK_EQ(size, 1L);
  predicate.answer = kNumbered + 321;
  CHECK_EQ(list->LastIndexWhere(&where, &at), kNumbered + 321);
  predicate.answer = E_ACCESSDENIED;
  CHECK_EQ(list->LastIndexWhere(&where, &at), E_ACCESSDENIED);
  CHECK_EQ(predicate.lateCalls + comparator.lateCalls, 0);
  EarlyObserver observer;
  _IObjListEventHandler* handler = &observer;
  IDispatch* data = &observer;
  WORKS(list->SetEventHandler(&handler, &data));
  auto item = Box(8).As<IDispatch>();
  WORKS(list->AddItemBefore(item.by(), By(LONG{1}), &at));
  Pointer<IDispatch> removed;
  WORKS(list->Remove(By(LONG{0}), removed.out()));
  CHECK_EQ(observer.seen, L"+8@1-3@0");
  CHECK_EQ(Unboxed(removed), 3L);
  Pointer<_IObjListEventHandler> nobody;
  Pointer<IDispatch> nothing;
  WORKS(list->SetEventHandler(nobody.by(), nothing.by()));
  CHECK_EQ(observer.references, 1UL);
  CHECK_EQ(list->GetItem(By(LONG{0}), nullptr), E_POINTER);
  SAFEARRAY* array = nullptr;
  WORKS(list->AsArray(&array));
  LONG upper = 0;
  SafeArrayGetUBound(array, 1, &upper);
  CHECK_EQ(upper, 2L);
  SafeArrayDestroy(array);
  const auto empty = New<clsObjectList, _clsObjectList>();
  CHECK_EQ(empty->AsArray(&array), kNumbered + 9);
}

void HostObjects() {
  EarlyComparable heavy(9), light(4);
  auto list = New<clsObjectList, _clsObjectList>();
  LONG at = -1;
  for (EarlyComparable* object : {&heavy, &light}) {
    IDispatch* item = object;
    WORKS(list->AddItem(&item, &at));
  }
  WORKS(list->SortInPlace(nullptr, nullptr, Text(L"weight").by()));
  CHECK(heavy.field == L"weight" || light.field == L"weight");
  Pointer<IDispatch> first;
  WORKS(list->GetItem(By(LONG{0}), first.out()));
  CHECK(first.get() == &light);
  IDispatch* sought = &heavy;
  WORKS(list->FindObject(&sought, &at));
  CHECK_EQ(at, 1L);
  VARIANT value;
  V_VT(&value) = VT_I4;
  V_I4(&value) = 9;
  WORKS(list->FindFieldValue(Text(L"weight").by(), &value, &at));
  CHECK_EQ(at, 1L);
  CHECK_EQ(heavy.lateCalls + light.lateCalls, 0);
  first = {};
  list = {};
  CHECK_EQ(heavy.references, 1UL);
  CHECK_EQ(light.references, 1UL);
}

// Variables that refer to nothing and to themselves, as values and as elements of an array.
void VariantsThatLeadNowhere() {
  auto list = ListOf({1});
  const auto comparable = Box(1).As<_IComparable>();
  const auto helper = New<VestrelStatic, _VestrelStatic>();
  VARIANT nothing;
  V_VT(&nothing) = VT_BYREF | VT_I4;
  V_I4REF(&nothing) = nullptr;
  VARIANT circle;
  V_VT(&circle) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&circle) = &circle;
  for (VARIANT* bad : {&nothing, &circle}) {
    LONG at = -5;
    Text joined;
    CHECK_EQ(list->FindFieldValue(Text(L"all").by(), bad, &at), E_INVALIDARG);
    CHECK_EQ(comparable->FieldCompare(Text(L"all").by(), bad, &at), E_INVALIDARG);
    CHECK_EQ(list->JoinStrings(Text(L"-").by(), bad, joined.out()), E_INVALIDARG);
    SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    auto& element = *static_cast<VARIANT*>(array->pvData);
    element = *bad;
    if (bad == &circle) V_VARIANTREF(&element) = &element;
    Pointer<_clsObjectList> made;
    CHECK_EQ(helper->StringListFrom(&array, made.out()), DISP_E_TYPEMISMATCH);
    CHECK(!made);
    SafeArrayDestroy(array);
  }
}

void ExtendedFirst() {
  ExtendedPredicate predicate;
  auto list = ListOf({1, 2});
  auto late = list.As<IDispatch>();
  VARIANT argument;
  V_VT(&argument) = VT_DISPATCH;
  V_DISPATCH(&argument) = &predicate;
  DISPPARAMS parameters{&argument, nullptr, 1, 0};
  DISPID id = 0;
  auto* name = const_cast<LPOLESTR>(L"lastindexwhere");
  WORKS(late->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id));
  VARIANT result;
  VariantInit(&result);
  WORKS(late->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, &result, nullptr,
                     nullptr));
  CHECK_EQ(V_I4(&result), 1L);
  CHECK_EQ(predicate.plainCalls, 0);
  CHECK_EQ(predicate.names, L"IsTrueFor!IsTrueFor?");
}

void Identity() {
  auto button = New<clsButton, _clsButton>();
  const auto unknown = button.As<IUnknown>();
  const auto comparable = button.As<_IComparable>();
  CHECK(static_cast<bool>(comparable));
  CHECK(comparable.As<IUnknown>().get() == unknown.get());
  CHECK(button.As<IDispatch>().As<IUnknown>().get() == unknown.get());
  CHECK(!button.As<_clsLong>());
  LONG order = 5;
  auto other = button.As<IDispatch>();
  WORKS(comparable->CompareTo(other.by(), nullptr, &order));
  CHECK_EQ(order, 0L);
  auto list = New<clsObjectList, _clsObjectList>();
  LONG at = 0;
  WORKS(list->AddItem(other.by(), &at));
  Pointer<IDispatch> back;
  WORKS(list->GetItem(By(LONG{0}), back.out()));
  CHECK(back.As<IUnknown>().get() == unknown.get());
  const auto controller = New<clsButtonGroupController, _clsButtonGroupController>();
  CHECK(static_cast<bool>(controller.As<_IButtonEventHandler>()));
  CHECK(static_cast<bool>(controller.As<_IObjListEventHandler>()));
  const auto recorder = New<clsRecordController, _clsRecordController>();
  CHECK(static_cast<bool>(recorder.As<_IRecordController>()));
  CHECK(static_cast<bool>(recorder.As<_IVXEventListHandler>()));
  const auto events = New<vxEventList, _vxEventList>();
  CHECK(static_cast<bool>(events.As<_IObjectComparator>()));
  const auto provider = button.As<IProvideClassInfo>();
  Pointer<ITypeInfo> info;
  WORKS(provider->GetClassInfo(info.out()));
  TYPEATTR* attributes = nullptr;
  WORKS(info->GetTypeAttr(&attributes));
  CHECK(attributes->guid == __uuidof(clsButton));
  info->ReleaseTypeAttr(attributes);
}

void Failures() {
  const auto helper = New<VestrelStatic, _VestrelStatic>();
  CHECK(helper.As<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(__uuidof(_VestrelStatic)) == S_OK);
  CHECK_EQ(helper->Assert(By(false)), kNumbered + 7155);
  const Raised raised = TakeRaised();
  CHECK_EQ(raised.source, L"modUtils.Assert()");
  CHECK_EQ(raised.description, L"assert false");
  auto comparable = Box(1).As<_IComparable>();
  LONG order = 0;
  auto text = New<clsString, _clsString>().As<IDispatch>();
  CHECK_EQ(comparable->CompareTo(text.by(), nullptr, &order), kNumbered + 13);
}

void LeaveErrorInformation() {
  CHECK_EQ((New<VestrelStatic, _VestrelStatic>()->Assert(By(false))), kNumbered + 7155);
}

// A failure that has no texts of its own does not leave those of an earlier one.
void StaleTexts() {
  const auto list = ListOf({1});
  LeaveErrorInformation();
  CHECK_EQ(list->GetItem(By(LONG{0}), nullptr), E_POINTER);
  CHECK_EQ(TakeRaised().description, L"");
  VARIANT nothing;
  V_VT(&nothing) = VT_BYREF | VT_I4;
  V_I4REF(&nothing) = nullptr;
  LONG at = -5;
  LeaveErrorInformation();
  CHECK_EQ(list->FindFieldValue(Text(L"all").by(), &nothing, &at), E_INVALIDARG);
  CHECK_EQ(TakeRaised().description, L"");
  LeaveErrorInformation();
  DISPPARAMS none{nullptr, nullptr, 0, 0};
  const auto late = list.As<IDispatch>();
  CHECK_EQ(
      late->Invoke(9999, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
      DISP_E_MEMBERNOTFOUND);
  CHECK_EQ(TakeRaised().description, L"");
}

BSTR WINAPI NoNewText(const OLECHAR* /*text*/, UINT /*length*/) {
  return nullptr;
}

// Memory that runs out is error 7, early and late bound.
void NoMemory() {
  const auto text = New<clsString, _clsString>();
  const HMODULE module = GetModuleHandleW(L"Vestrel.dll");
  void* newText = TurnAside(module, "SysAllocStringLen", reinterpret_cast<void*>(&NoNewText));
  CHECK(newText != nullptr);
  if (newText == nullptr) return;
  BSTR value = nullptr;
  const HRESULT early = text->get_value(&value);
  const Raised raised = TakeRaised();
  DISPPARAMS none{nullptr, nullptr, 0, 0};
  EXCEPINFO information{};
  VARIANT result;
  VariantInit(&result);
  const HRESULT late = text.As<IDispatch>()->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                                    &none, &result, &information, nullptr);
  TurnAside(module, "SysAllocStringLen", newText);
  CHECK_EQ(early, kNumbered + 7);
  CHECK_EQ(raised.description, L"Out of memory");
  CHECK(value == nullptr);
  CHECK_EQ(late, DISP_E_EXCEPTION);
  CHECK_EQ(information.scode, kNumbered + 7);
}

struct Stage {
  CallLog log;
  EarlyForm form{log};
  EarlyLamps lamps{log};
  EarlyBar bar{log};
  Pointer<_clsRecordController> recorder = New<clsRecordController, _clsRecordController>();
  Pointer<_clsButtonGroupController> controller = New<clsButtonGroupController, _clsButtonGroupController>();

  void SetUp() {
    _IRecordEventHandler* transport = &bar;
    WORKS(recorder->Init(&transport));
    _IFormSequenceShortcuts* screen = &form;
    _ILEDSetter* setter = &lamps;
    auto record = recorder.As<_IRecordController>();
    WORKS(controller->Init(&screen, Text(dataFolder).by(), &setter, record.by()));
    CHECK_EQ(log.Taken(), L"EndLEDTimer();setLED(245,-1,0);setLED(246,-1,0);setLED(247,-1,0);");
    WORKS(controller->setButtonGroupPageSize(By(LONG{4})));
    WORKS(controller->CreateNewShow(Text(L"Early").by()));
    log.Taken();
    WORKS(controller->SetPage(Text(L"One").by()));
    CHECK_EQ(log.Taken(),
             L"GetUIFaderValues(0);UpdateFaderModelValue(0,1,0,0,none);UpdateFaderModelValue(0,2,0,0,none);"
             L"UpdateFaderModelValue(0,3,0,0,none);UpdateFaderModelValue(0,4,0,0,none);"
             L"UpdateFaderModelValue(0,5,0,0,none);UpdateFaderModelValue(0,6,0,0,none);"
             L"UpdateFaderModelValue(0,7,0,0,none);UpdateFaderModelValue(0,8,0,0,none);"
             L"EndLEDTimer();setLED(245,-1,0);setLED(246,-1,0);setLED(247,-1,0);");
    Assign(1, L"Intro");
    Assign(2, L"Chase");
    CHECK_EQ(log.Taken(), L"setLED(245,1,-1);");
  }
  void Assign(LONG slot, const wchar_t* name) {
    WORKS(controller->assignButton(By(LONG{1}), By(LONG{slot}), Text(name).by(), By(ButtonType_Sequence)));
  }
  Pointer<_clsButton> Button(LONG index) {
    Pointer<_clsButton> button;
    WORKS(controller->buttonWithIndex(By(LONG{1}), By(LONG{index}), button.out()));
    return button;
  }
  HRESULT Click(LONG control) {
    return controller->controlClicked(By(LONG{control}), By(short{1}), By(short{0}), By(2.5F), By(3.5F),
                                      nullptr, nullptr, nullptr);
  }
};

// Numbers 0 and 1 are failures like any other.
void LowNumbers(Stage& stage) {
  CHECK_EQ(
      stage.controller->assignButton(By(LONG{10}), By(LONG{1}), Text(L"x").by(), By(ButtonType_Sequence)),
      kNumbered);
  Raised raised = TakeRaised();
  CHECK_EQ(raised.source, L"clsButtonGroupController");
  CHECK_EQ(raised.description, L"10 - invalid group: clsButtonGroupController.assignButton()");
  CHECK_EQ(
      stage.controller->assignButton(By(LONG{2}), By(LONG{41}), Text(L"x").by(), By(ButtonType_Sequence)),
      kNumbered + 1);
  raised = TakeRaised();
  CHECK_EQ(raised.source, L"clsButtonGroupController");
  CHECK_EQ(raised.description, L"41 - invalid buttonIndex: clsButtonGroupController.assignButton()");
}

void Clicks(Stage& stage) {
  WORKS(stage.Click(33));
  CHECK_EQ(stage.log.Taken(),
           L"ButtonStateChanged(Intro,1,0,2.5,3.5);StartLEDTimer();setLED(245,1,0);RefreshPage(2,0,Intro);"
           L"RefreshPage(2,0,Chase);");
  Pointer<_clsButton> clicked;
  WORKS(stage.controller->controlClicked(By(LONG{33}), By(short{1}), By(short{0}), By(0.0F), By(0.0F),
                                         By(TriggerMode_Toggle), By(true), clicked.by()));
  Text name;
  WORKS(clicked->get_name(name.out()));
  CHECK_EQ(name.str(), L"Intro");
  PlayStateEnum state = PlayState_Null;
  WORKS(clicked->get_playState(&state));
  CHECK_EQ(static_cast<int>(state), 0);
  Pointer<_clsButton> excluded;
  WORKS(stage.controller->releaseButtonsOnPage(By(LONG{-1}), nullptr, excluded.by()));
  WORKS(excluded->get_name(name.out()));
  CHECK_EQ(name.str(), L"x");
  LONG before = -3;
  Pointer<_clsButton> previous;
  WORKS(stage.controller->getPrevButton(By(LONG{1}), &before, previous.out()));
  CHECK_EQ(before, 999999L);
  CHECK(previous.As<IUnknown>().get() == stage.Button(2).As<IUnknown>().get());
}

void Reentrancy(Stage& stage) {
  stage.form.whenButtonChanges = [&stage](_clsButton* button) {
    PlayStateEnum state = PlayState_Null;
    button->get_playState(&state);
    if (state != PlayState_On) return;
    _clsButton* excluded = button;
    WORKS(stage.controller->releaseButtonsOnPage(By(LONG{1}), nullptr, &excluded));
    CHECK(excluded == button);
  };
  WORKS(stage.Click(34));
  stage.log.Taken();
  WORKS(stage.Click(33));
  CHECK_EQ(stage.log.Taken(),
           L"ButtonStateChanged(Intro,1,0,2.5,3.5);ButtonStateChanged(Chase,1,0,0,0);RefreshPage(2,0,Chase);"
           L"RefreshPage(2,0,Intro);RefreshPage(2,0,Chase);");
  stage.form.whenButtonChanges = nullptr;
  WORKS(stage.Click(33));
  stage.log.Taken();
}

void Faders(Stage& stage) {
  TUIFaderValues values{};
  values.GroupFaders[0] = 77;
  WORKS(stage.controller->GetUIFaderValues(&values));
  CHECK_EQ(stage.log.Taken(), L"GetUIFaderValues(77);");
  CHECK_EQ(values.GroupFaders[7], 80L);
  CHECK_EQ(values.BumpFaders[2], 3L);
  WORKS(stage.controller->groupFaderChanged(By(LONG{1}), By(LONG{0})));
  WORKS(stage.controller->groupFaderChanged(By(LONG{1}), By(LONG{60})));
  CHECK_EQ(stage.log.Taken(),
           L"UpdateFaderModelValue(0,1,60,-1,none);GoFromSubmaster(Chase,0,0,0);RefreshPage(2,0,Chase);"
           L"RefreshPage(2,0,Intro);");
  WORKS(stage.controller->buttonGroupGo(By(LONG{1}), By(short{2}), By(1.5F), By(true)));
  CHECK_EQ(stage.log.Taken(),
           L"GoFromSubmaster(Intro,2,1.5,-1);RefreshPage(2,0,Intro);RefreshPage(2,0,Chase);");
}

// The record in a VARIANT, through late binding.
void FadersByName(Stage& stage) {
  auto late = stage.controller.As<IDispatch>();
  Pointer<ITypeInfo> own;
  Pointer<ITypeLib> library;
  UINT index = 0;
  WORKS(late->GetTypeInfo(0, LOCALE_USER_DEFAULT, own.out()));
  WORKS(own->GetContainingTypeLib(library.out(), &index));
  Pointer<ITypeInfo> record;
  MEMBERID member = 0;
  USHORT found = 1;
  Text name(L"TUIFaderValues");
  WORKS(library->FindName(name.get(), 0, record.out(), &member, &found));
  Pointer<IRecordInfo> information;
  WORKS(GetRecordInfoFromTypeInfo(record.get(), information.out()));
  TUIFaderValues values{};
  values.GroupFaders[0] = 12;
  VARIANT argument;
  V_VT(&argument) = VT_RECORD | VT_BYREF;
  V_RECORD(&argument) = &values;
  V_RECORDINFO(&argument) = information.get();
  DISPPARAMS parameters{&argument, nullptr, 1, 0};
  DISPID id = 0;
  auto* operation = const_cast<LPOLESTR>(L"GetUIFaderValues");
  WORKS(late->GetIDsOfNames(IID_NULL, &operation, 1, LOCALE_USER_DEFAULT, &id));
  WORKS(late->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                     nullptr));
  CHECK_EQ(stage.log.Taken(), L"GetUIFaderValues(12);");
  CHECK_EQ(values.GroupFaders[3], 40L);
  CHECK_EQ(values.BumpFaders[7], 8L);
}

// A name that is taken, refused and then allowed; and a copy, whose files the form makes.
void Editing(Stage& stage) {
  _IAssignmentCallback* nobody = nullptr;
  WORKS(stage.controller->setModeAssign(Text(L"Chase").by(), By(ButtonType_Sequence), &nobody));
  CHECK_EQ(stage.log.Taken(),
           L"PromptButtonOverwrite(Do you want to overwrite the existing [Chase] button?);");
  stage.form.overwrite = VARIANT_TRUE;
  WORKS(stage.controller->setModeAssign(Text(L"Chase").by(), By(ButtonType_Sequence), &nobody));
  const std::wstring told = stage.log.Taken();
  CHECK(told.find(L"DeleteButton(Chase,-1);") != std::wstring::npos);
  WORKS(stage.controller->setModeEditing(By(true)));
  WORKS(stage.Click(33));
  WORKS(stage.controller->setModeCopy());
  stage.log.Taken();
  WORKS(stage.Click(35));
  CHECK(stage.log.Taken().find(L"CopyButtonFiles(1,One,Intro,One,Intro copy,0);") == 0);
  WORKS(stage.controller->setModeEditing(By(false)));
}

void FailingCallbacks(Stage& stage) {
  stage.form.answer = kNumbered + 777;
  CHECK_EQ(stage.controller->HideSplashScreen(), kNumbered + 777);
  Raised raised = TakeRaised();
  CHECK_EQ(raised.source, L"the form");
  CHECK_EQ(raised.description, L"it does not want to");
  stage.form.answer = E_FAIL;
  CHECK_EQ(stage.controller->HideSplashScreen(), E_FAIL);
  // It says that it tells errors, but has nothing to say of this one.
  stage.form.setsTexts = false;
  LeaveErrorInformation();
  CHECK_EQ(stage.controller->HideSplashScreen(), E_FAIL);
  CHECK_EQ(TakeRaised().source, L"Vestrel host");
  stage.form.setsTexts = true;
  stage.form.answer = S_FALSE;
  WORKS(stage.controller->HideSplashScreen());
  stage.form.answer = S_OK;
  stage.log.Taken();
}

// Error information that is not the form's own is not taken for it.
void SilentCallbacks() {
  Stage stage;
  stage.form.tellsErrors = false;
  stage.SetUp();
  stage.form.answer = kNumbered + 5;
  CHECK_EQ(stage.controller->HideSplashScreen(), kNumbered + 5);
  CHECK(TakeRaised().description != L"it does not want to");
}

void Recording(Stage& stage) {
  WORKS(stage.recorder->Record());
  CHECK_EQ(stage.log.Taken(), L"SetTimerEnabled(-1);TransportStateChanged(1,-1);");
  WORKS(stage.Click(34));
  CHECK(stage.log.Taken().find(L"NewEventRecorded(Chase);") != std::wstring::npos);
  WORKS(stage.recorder->Stop_());
  CHECK_EQ(stage.log.Taken(), L"UpdateTimecodeDisplay(0);SetTimerEnabled(0);TransportStateChanged(0,0);");
  Text timecode;
  WORKS(stage.recorder->msToTimecode(3723004, timecode.out()));
  CHECK_EQ(timecode.str(), L"01:02:03.004");
  LONG milliseconds = 5;
  VARIANT_BOOL understood = VARIANT_FALSE;
  WORKS(stage.recorder->timecodeToMS(Text(L"00:59.999").by(), &milliseconds, &understood));
  CHECK_EQ(milliseconds, 59999L);
  CHECK_EQ(understood, VARIANT_TRUE);
}

void Files() {
  const auto ini = New<clsIniFile, _clsIniFile>();
  WORKS(ini->UseFile(Text(dataFolder + L"\\early.ini").by()));
  Text value(L"a\r\nb");
  WORKS(ini->WriteString(Text(L"key").by(), value.by()));
  CHECK_EQ(value.str(), L"a  b");
  LONG number = 0;
  WORKS(ini->ReadLong(Text(L"absent").by(), By(LONG{-4}), &number));
  CHECK_EQ(number, -4L);
}

void Shows() {
  Stage stage;
  stage.SetUp();
  Clicks(stage);
  Reentrancy(stage);
  Faders(stage);
  FadersByName(stage);
  FailingCallbacks(stage);
  LowNumbers(stage);
  Recording(stage);
  Editing(stage);
  WORKS(stage.controller->formShutdown());
  CHECK_EQ(stage.form.lateCalls + stage.lamps.lateCalls + stage.bar.lateCalls, 0);
  stage.controller = {};
  stage.recorder = {};
  CHECK_EQ(stage.form.references, 1UL);
  CHECK_EQ(stage.lamps.references, 1UL);
  CHECK_EQ(stage.bar.references, 1UL);
}

int Run(const wchar_t* folder) {
  dataFolder = folder;
  WORKS((New<VestrelStatic, _VestrelStatic>()->Init(Text(dataFolder + L"\\log.txt").by())));
  Lists();
  HostObjects();
  VariantsThatLeadNowhere();
  ExtendedFirst();
  Identity();
  Failures();
  StaleTexts();
  NoMemory();
  Files();
  Shows();
  SilentCallbacks();
  return Totals("early bound");
}

}  // namespace
}  // namespace host

// EarlyBound FOLDER: an empty folder for data.
int wmain(int count, wchar_t** arguments) {
  return host::Program(count == 2, [&] { return host::Run(arguments[1]); });
}
