// Late binding in the forms that compilers and engines use: typed variables by reference, arguments by name,
// missing ones, values of other types, and what a failing call tells.
#include "tests/component/host/Check.h"
#include "tests/component/host/Program.h"
#include "tests/component/host/ScriptedHost.h"
#include "tests/component/host/Session.h"

namespace host {
namespace {

constexpr HRESULT kNumbered = static_cast<HRESULT>(0x800A0000);

// What came of an Invoke.
struct Answer {
  HRESULT code = S_OK;
  Value result;
  UINT argument = 99;
  HRESULT number = S_OK;
  std::wstring source;
  std::wstring description;
};

DISPID IdOf(const Value& object, const wchar_t* name) {
  DISPID id = DISPID_UNKNOWN;
  auto* text = const_cast<LPOLESTR>(name);
  object.object()->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

std::wstring Take(BSTR text) {
  std::wstring result = text == nullptr ? L"" : text;
  SysFreeString(text);
  return result;
}

// The arguments last to first, those with a name before the others.
Answer Invoke(const Value& object, const wchar_t* name, std::vector<VARIANT> reversed,
              std::vector<DISPID> named = {}, WORD flags = DISPATCH_METHOD) {
  Answer answer;
  EXCEPINFO information{};
  DISPPARAMS parameters{reversed.data(), named.data(), static_cast<UINT>(reversed.size()),
                        static_cast<UINT>(named.size())};
  answer.code = object.object()->Invoke(IdOf(object, name), IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                        answer.result.raw(), &information, &answer.argument);
  answer.number = information.scode;
  answer.source = Take(information.bstrSource);
  answer.description = Take(information.bstrDescription);
  return answer;
}

VARIANT Reference(VARTYPE type, void* place) {
  VARIANT variant;
  V_VT(&variant) = static_cast<VARTYPE>(type | VT_BYREF);
  V_BYREF(&variant) = place;
  return variant;
}

Value Numbers() {
  const Value list = Create(L"clsObjectList");
  for (const int number : {7, 40000, -3}) Call(list, L"AddItem", {Box(number)});
  return Call(list, L"BeginIter");
}

void TypedNumbers() {
  LONG number = -1;
  SHORT small = -1;
  double real = -1;
  Value variable = L"text";
  Value iterator = Numbers();
  CHECK(Invoke(iterator, L"hasNextLong", {Reference(VT_I4, &number)}).result.truth());
  CHECK_EQ(number, 7L);
  CHECK_EQ(Invoke(iterator, L"hasNextLong", {Reference(VT_I2, &small)}).code, DISP_E_OVERFLOW);
  CHECK_EQ(static_cast<int>(small), -1);
  CHECK(Invoke(iterator, L"hasNextLong", {Reference(VT_R8, &real)}).result.truth());
  CHECK(real == -3.0);
  CHECK(!Invoke(iterator, L"hasNextLong", {Reference(VT_I4, &number)}).result.truth());
  CHECK_EQ(number, 7L);
  Call(iterator, L"resetIter");
  CHECK(Invoke(iterator, L"hasNextWithIndex", {Reference(VT_I2, &small)}).result.truth());
  CHECK_EQ(static_cast<int>(small), 0);
  CHECK(Invoke(iterator, L"hasNextWithIndex", {Reference(VT_VARIANT, variable.raw())}).result.truth());
  CHECK_EQ(variable.number(), 1);
  // A reference to a variable that is itself a reference.
  Value outer;
  V_VT(outer.raw()) = VT_BYREF | VT_I4;
  V_I4REF(outer.raw()) = &number;
  CHECK(Invoke(iterator, L"hasNextWithIndex", {Reference(VT_VARIANT, outer.raw())}).result.truth());
  CHECK_EQ(number, 2L);
  V_VT(outer.raw()) = VT_EMPTY;
}

void TypedTextsAndObjects() {
  const Value list = Create(L"clsObjectList");
  Call(list, L"AddItem", {BoxText(L"one")});
  Call(list, L"AddItem", {BoxText(L"12")});
  const Value iterator = Call(list, L"BeginIter");
  BSTR text = SysAllocString(L"before");
  LONG number = 0;
  CHECK(Invoke(iterator, L"hasNextString", {Reference(VT_BSTR, &text)}).result.truth());
  CHECK_EQ(Take(text), L"one");
  CHECK(Invoke(iterator, L"hasNextString", {Reference(VT_I4, &number)}).result.truth());
  CHECK_EQ(number, 12L);
  Call(iterator, L"resetIter");
  IDispatch* object = nullptr;
  CHECK(Invoke(iterator, L"hasNextObject", {Reference(VT_DISPATCH, &object)}).result.truth());
  CHECK(object != nullptr);
  // The old object is let go of when another takes its place.
  CHECK(Invoke(iterator, L"hasNextObject", {Reference(VT_DISPATCH, &object)}).result.truth());
  CHECK(object == Call(list, L"GetItem", {1}).object());
  if (object != nullptr) object->Release();
  // An element of an array.
  Call(iterator, L"resetIter");
  SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 1, 2);
  void* element = nullptr;
  LONG at = 2;
  SafeArrayPtrOfIndex(array, &at, &element);
  CHECK(Invoke(iterator, L"hasNextString", {Reference(VT_VARIANT, element)}).result.truth());
  CHECK_EQ(std::wstring(V_BSTR(static_cast<VARIANT*>(element))), L"one");
  SafeArrayDestroy(array);
}

VARIANT Plain(const Value& value) {
  return value.variant();
}

void Named() {
  const Value list = Create(L"clsObjectList");
  for (const int number : {2, 3, 1}) Call(list, L"AddItem", {Box(number)});
  LPOLESTR names[] = {const_cast<LPOLESTR>(L"SORTINPLACE"), const_cast<LPOLESTR>(L"reverse"),
                      const_cast<LPOLESTR>(L"FIELD")};
  DISPID ids[3] = {-9, -9, -9};
  CHECK_EQ(list.object()->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids), S_OK);
  CHECK_EQ(ids[1], 1L);
  CHECK_EQ(ids[2], 2L);
  const Value truth(true);
  const Value field(L"all");
  CHECK_EQ(Invoke(list, L"SortInPlace", {Plain(truth)}, {1}).code, S_OK);
  CHECK_EQ(Unbox(Call(list, L"GetItem", {0})), 3);
  const Value falsehood(false);
  CHECK_EQ(Invoke(list, L"SortInPlace", {Plain(field), Plain(falsehood)}, {2, 1}).code, S_OK);
  CHECK_EQ(Unbox(Call(list, L"GetItem", {0})), 1);
  CHECK_EQ(Invoke(list, L"SortInPlace", {Plain(field)}, {7}).code, DISP_E_PARAMNOTFOUND);
  names[1] = const_cast<LPOLESTR>(L"nothing");
  CHECK_EQ(list.object()->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids), DISP_E_UNKNOWNNAME);
  CHECK_EQ(ids[1], static_cast<DISPID>(DISPID_UNKNOWN));
  CHECK_EQ(ids[2], 2L);
}

void Conversions() {
  const Value helper = Create(L"VestrelStatic");
  CHECK_EQ(Call(helper, L"OneBasedMod", {L"5", 4.0}).number(), 1);
  CHECK_EQ(Call(helper, L"OneBasedMod", {Box(5), BoxText(L"4")}).number(), 1);
  CHECK_EQ(Call(helper, L"ZeroToOneBased", {true}).number(), 0);
  const Value five(5);
  const Value word(L"five");
  const Value huge(3e9);
  Answer answer = Invoke(helper, L"OneBasedMod", {Plain(word), Plain(five)});
  CHECK_EQ(answer.code, DISP_E_TYPEMISMATCH);
  CHECK_EQ(answer.argument, 0U);
  answer = Invoke(helper, L"OneBasedMod", {Plain(five), Plain(word)});
  CHECK_EQ(answer.code, DISP_E_TYPEMISMATCH);
  CHECK_EQ(answer.argument, 1U);
  CHECK_EQ(Invoke(helper, L"OneBasedMod", {Plain(five), Plain(huge)}).code, DISP_E_OVERFLOW);
  CHECK_EQ(Invoke(helper, L"OneBasedMod", {Plain(five)}).code, DISP_E_BADPARAMCOUNT);
  CHECK_EQ(Invoke(helper, L"OneBasedMod", {Plain(five), Plain(five), Plain(five)}).code,
           DISP_E_BADPARAMCOUNT);
  const Value other = Create(L"clsString");
  answer = Invoke(helper, L"UnboxLong", {Plain(other)});
  CHECK_EQ(answer.code, DISP_E_TYPEMISMATCH);
  CHECK_EQ(answer.argument, 0U);
  CHECK_EQ(IdOf(helper, L"NoSuchOperation"), static_cast<DISPID>(DISPID_UNKNOWN));
  CHECK_EQ(Invoke(helper, L"OneBasedMod", {}, {}, DISPATCH_PROPERTYPUT).code, DISP_E_MEMBERNOTFOUND);
}

void Failures() {
  const Value helper = Create(L"VestrelStatic");
  const Value falsehood(false);
  Answer answer = Invoke(helper, L"Assert", {Plain(falsehood)});
  CHECK_EQ(answer.code, DISP_E_EXCEPTION);
  CHECK_EQ(answer.number, kNumbered + 7155);
  CHECK_EQ(answer.source, L"modUtils.Assert()");
  CHECK_EQ(answer.description, L"assert false");
  // A caller that wants no details gets the number.
  VARIANT argument = falsehood.variant();
  DISPPARAMS parameters{&argument, nullptr, 1, 0};
  CHECK_EQ(helper.object()->Invoke(IdOf(helper, L"Assert"), IID_NULL, 0, DISPATCH_METHOD, &parameters,
                                   nullptr, nullptr, nullptr),
           kNumbered + 7155);
}

// The ways in which automation objects tell why they fail.
void TellCode(EXCEPINFO& information) {
  information.wCode = 55;
  information.bstrDescription = SysAllocString(L"by a short code");
}
HRESULT STDMETHODCALLTYPE FillIn(EXCEPINFO* information) {
  information->scode = kNumbered + 56;
  information->bstrSource = SysAllocString(L"later");
  information->bstrDescription = SysAllocString(L"filled in when asked");
  return S_OK;
}
void TellLater(EXCEPINFO& information) {
  information.pfnDeferredFillIn = FillIn;
}
void TellNothing(EXCEPINFO& /*information*/) {}

void FailingCallbacks() {
  const Value list = Create(L"clsObjectList");
  Call(list, L"AddItem", {Box(1)});
  ScriptedHost predicate({L"IsTrueFor"});
  predicate.actions[L"IsTrueFor"] = [](std::vector<Value>&) { return kNumbered + 321; };
  const Value where(&predicate);
  const auto check = [&](HRESULT number, const wchar_t* source, const wchar_t* description) {
    const Answer answer = Invoke(list, L"FirstIndexWhere", {Plain(where)});
    CHECK_EQ(answer.code, DISP_E_EXCEPTION);
    CHECK_EQ(answer.number, number);
    CHECK_EQ(answer.source, source);
    CHECK_EQ(answer.description, description);
  };
  check(kNumbered + 321, L"the host", L"the host failed");
  predicate.tells = TellCode;
  check(kNumbered + 55, L"Vestrel host", L"by a short code");
  predicate.tells = TellLater;
  check(kNumbered + 56, L"later", L"filled in when asked");
  predicate.tells = TellNothing;
  const Answer answer = Invoke(list, L"FirstIndexWhere", {Plain(where)});
  CHECK_EQ(answer.code, DISP_E_EXCEPTION);
  CHECK_EQ(answer.number, E_FAIL);
}

void Properties() {
  const Value button = Create(L"clsButton");
  const Value five(5);
  CHECK_EQ(Invoke(button, L"buttonIndex", {Plain(five)}, {DISPID_PROPERTYPUT}, DISPATCH_PROPERTYPUT).code,
           S_OK);
  CHECK_EQ(Invoke(button, L"BUTTONINDEX", {}, {}, DISPATCH_PROPERTYGET).result.number(), 5);
  CHECK_EQ(Invoke(button, L"buttonIndex", {}, {}, DISPATCH_METHOD | DISPATCH_PROPERTYGET).result.number(), 5);
  CHECK_EQ(Invoke(button, L"buttonIndex", {}, {}, DISPATCH_METHOD).result.number(), 5);
  const Value event = Create(L"vxEvent");
  CHECK_EQ(Invoke(event, L"button", {Plain(button)}, {DISPID_PROPERTYPUT}, DISPATCH_PROPERTYPUTREF).code,
           S_OK);
  CHECK_EQ(Invoke(event, L"button", {Plain(None())}, {DISPID_PROPERTYPUT}, DISPATCH_PROPERTYPUT).code, S_OK);
  CHECK(Invoke(event, L"button", {}, {}, DISPATCH_PROPERTYGET).result.object() == nullptr);
  const Value faders = Create(L"UIFaderValues");
  const Value eight(8);
  CHECK_EQ(
      Invoke(faders, L"BumpFaders", {Plain(five), Plain(eight)}, {DISPID_PROPERTYPUT}, DISPATCH_PROPERTYPUT)
          .code,
      S_OK);
  CHECK_EQ(Invoke(faders, L"BumpFaders", {Plain(eight)}, {}, DISPATCH_METHOD | DISPATCH_PROPERTYGET)
               .result.number(),
           5);
}

int Run(const wchar_t* path) {
  door = &LateBound();
  Call(Create(L"VestrelStatic"), L"Init", {(std::wstring(path) + L"\\log.txt").c_str()});
  TypedNumbers();
  TypedTextsAndObjects();
  Named();
  Conversions();
  Failures();
  FailingCallbacks();
  Properties();
  return Totals("late bound");
}

}  // namespace
}  // namespace host

// LateBound FOLDER: an empty folder for data.
int wmain(int count, wchar_t** arguments) {
  return host::Program(count == 2, [&] { return host::Run(arguments[1]); });
}
