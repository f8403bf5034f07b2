#include "bench/calls/Pairs.h"

#include <memory>

#include "bench/calls/Plain.h"

namespace vestrel::bench {
namespace {

constexpr double kLateBoundTimesFaster = 5;
constexpr double kNamesTimesFaster = 8;
constexpr const wchar_t* kWords = L"Scene 12, slowly";

// Keeps the compiler from leaving out the work that made the value.
template <class T>
void Keep(const T& value) {
  asm volatile("" : : "r,m"(value) : "memory");
}

DISPID IdOf(IDispatch* object, const wchar_t* name) {
  auto* names = const_cast<wchar_t*>(name);
  DISPID id = DISPID_UNKNOWN;
  Must(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id), "finding a name");
  return id;
}

VARIANT Number(LONG number) {
  VARIANT result;
  V_VT(&result) = VT_I4;
  V_I4(&result) = number;
  return result;
}

// A call by id, arguments ready: what is timed is the call and letting go of its result.
class LateCall {
 public:
  LateCall(IDispatch* object, const wchar_t* name, WORD flags, std::vector<VARIANT> backwards = {})
      : object_(object),
        type_(TypeOf(object)),
        id_(IdOf(object, name)),
        flags_(flags),
        arguments_(backwards) {}

  HRESULT ThroughObject(VARIANT* result) {
    DISPPARAMS parameters = Parameters();
    return object_->Invoke(id_, IID_NULL, LOCALE_USER_DEFAULT, flags_, &parameters, result, nullptr, nullptr);
  }
  HRESULT ThroughTypeLibrary(VARIANT* result) {
    DISPPARAMS parameters = Parameters();
    return type_->Invoke(object_, id_, flags_, &parameters, result, nullptr, nullptr);
  }
  bool HasResult() const { return flags_ != DISPATCH_PROPERTYPUT; }

 private:
  DISPPARAMS Parameters() {
    const bool put = flags_ == DISPATCH_PROPERTYPUT;
    return {arguments_.data(), put ? &put_ : nullptr, static_cast<UINT>(arguments_.size()), put ? 1U : 0U};
  }

  IDispatch* object_;
  ITypeInfo* type_;
  DISPID id_;
  WORD flags_;
  std::vector<VARIANT> arguments_;
  DISPID put_ = DISPID_PROPERTYPUT;
};

using Through = HRESULT (LateCall::*)(VARIANT*);

template <Through kThrough>
Work Calls(const std::shared_ptr<LateCall>& call) {
  return Repeated([call] {
    VARIANT result;
    VariantInit(&result);
    Keep(((*call).*kThrough)(call->HasResult() ? &result : nullptr));
    Keep(result);
    if (V_VT(&result) == VT_BSTR) SysFreeString(V_BSTR(&result));
  });
}

Pair LateBound(const char* figure, const LateCall& made, double timesFaster = kLateBoundTimesFaster) {
  const auto call = std::make_shared<LateCall>(made);
  VARIANT ours;
  VARIANT theirs;
  VariantInit(&ours);
  VariantInit(&theirs);
  Must(call->ThroughObject(call->HasResult() ? &ours : nullptr), figure);
  Must(call->ThroughTypeLibrary(call->HasResult() ? &theirs : nullptr), figure);
  MustHold(V_VT(&ours) == V_VT(&theirs), figure);
  if (V_VT(&ours) != VT_EMPTY) MustHold(VarCmp(&ours, &theirs, LOCALE_USER_DEFAULT, 0) == VARCMP_EQ, figure);
  return {figure, "type library, Invoke", Calls<&LateCall::ThroughObject>(call),
          Calls<&LateCall::ThroughTypeLibrary>(call), timesFaster};
}

Pair Name(const char* figure, IDispatch* object, const wchar_t* name) {
  ITypeInfo* type = TypeOf(object);
  auto* names = const_cast<wchar_t*>(name);
  DISPID theirs = DISPID_UNKNOWN;
  Must(type->GetIDsOfNames(&names, 1, &theirs), figure);
  MustHold(theirs == IdOf(object, name), figure);
  return {figure, "type library, names", Repeated([=]() mutable {
            DISPID id = 0;
            Keep(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id));
            Keep(id);
          }),
          Repeated([=]() mutable {
            DISPID id = 0;
            Keep(type->GetIDsOfNames(&names, 1, &id));
            Keep(id);
          }),
          kNamesTimesFaster};
}

// `ours` and `theirs` answer HRESULTs, and take a place for the result.
template <class Result, class Ours, class Theirs>
Pair EarlyBound(const char* figure, Ours ours, Theirs theirs) {
  const auto repeated = [](auto call) {
    return Repeated([call] {
      Result result{};
      Keep(call(&result));
      Keep(result);
      if constexpr (std::is_same_v<Result, BSTR>) SysFreeString(result);
    });
  };
  Result one{};
  Result other{};
  Must(ours(&one), figure);
  Must(theirs(&other), figure);
  if constexpr (std::is_same_v<Result, BSTR>) {
    MustHold(VarBstrCmp(one, other, LOCALE_USER_DEFAULT, 0) == VARCMP_EQ, figure);
    SysFreeString(one);
    SysFreeString(other);
  } else {
    MustHold(one == other, figure);
  }
  return {figure, "plain virtual call", repeated(ours), repeated(theirs), 0, true};
}

void AddEarlyBound(std::vector<Pair>& pairs, _clsLong* box, _VestrelStatic* helpers, _clsString* text) {
  const std::shared_ptr<Plain> plain = MakePlain(7, kWords);
  pairs.push_back(EarlyBound<LONG>(
      "early: number without arguments", [=](LONG* result) { return box->get_value(result); },
      [=](LONG* result) { return plain->Value(result); }));
  pairs.push_back(EarlyBound<LONG>(
      "early: one long",
      [=](LONG* result) {
        LONG index = 7;
        return helpers->ZeroToOneBased(&index, result);
      },
      [=](LONG* result) {
        LONG index = 7;
        return plain->OneMore(&index, result);
      }));
  pairs.push_back(EarlyBound<BSTR>(
      "early: text as result", [=](BSTR* result) { return text->get_value(result); },
      [=](BSTR* result) { return plain->Words(result); }));
}

}  // namespace

std::vector<Pair> MakePairs(const Server& server) {
  auto* fader = server.New<clsFaderCatch, _clsFaderCatch>();
  auto* list = server.New<clsObjectList, _clsObjectList>();
  auto* box = server.New<clsLong, _clsLong>();
  auto* text = server.New<clsString, _clsString>();
  auto* helpers = server.New<VestrelStatic, _VestrelStatic>();
  auto* controller = server.New<clsButtonGroupController, _clsButtonGroupController>();
  BSTR words = SysAllocString(kWords);
  Must(text->put_value(words), "setting a text");
  SysFreeString(words);

  std::vector<Pair> pairs;
  pairs.push_back(LateBound("late: nothing in, nothing out", {fader, L"PauseTracking", DISPATCH_METHOD}));
  pairs.push_back(LateBound("late: number without arguments", {list, L"Size", DISPATCH_METHOD}));
  pairs.push_back(LateBound("late: one long", {helpers, L"ZeroToOneBased", DISPATCH_METHOD, {Number(7)}}));
  pairs.push_back(
      LateBound("late: one long, property set", {box, L"value", DISPATCH_PROPERTYPUT, {Number(7)}}));
  // Most of it is making the text, which is the caller's to keep: no target.
  pairs.push_back(LateBound("late: text as result", {text, L"value", DISPATCH_PROPERTYGET}, 0));
  pairs.push_back(LateBound(
      "late: three longs",
      {helpers, L"controlIndexFromButtonIndex", DISPATCH_METHOD, {Number(3), Number(2), Number(8)}}));
  pairs.push_back(Name("names: first of 19", list, L"GetItem"));
  pairs.push_back(Name("names: last of 19", list, L"Reverse"));
  pairs.push_back(Name("names: last of 70", controller, L"PageManager"));
  AddEarlyBound(pairs, box, helpers, text);
  return pairs;
}

}  // namespace vestrel::bench
