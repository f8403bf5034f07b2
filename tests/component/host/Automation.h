// A small automation client for the host programs of the suite: values, objects, and calls by name through
// one of two doors, late binding or the type library's slots. Failures are kept, not thrown: Call answers
// what happened.
#pragma once

#include <oaidl.h>
#include <objbase.h>
#include <oleauto.h>
#include <windows.h>

#include <string>
#include <vector>

namespace host {

// A VARIANT that owns what it holds.
class Value {
 public:
  Value() { VariantInit(&variant_); }
  Value(int number) : Value() {  // NOLINT: written like plain values throughout
    V_VT(&variant_) = VT_I4;
    V_I4(&variant_) = number;
  }
  Value(bool truth) : Value() {  // NOLINT
    V_VT(&variant_) = VT_BOOL;
    V_BOOL(&variant_) = truth ? VARIANT_TRUE : VARIANT_FALSE;
  }
  Value(double number) : Value() {  // NOLINT
    V_VT(&variant_) = VT_R8;
    V_R8(&variant_) = number;
  }
  Value(const wchar_t* text) : Value() {  // NOLINT
    V_VT(&variant_) = VT_BSTR;
    V_BSTR(&variant_) = SysAllocString(text);
  }
  Value(IDispatch* object) : Value() {  // NOLINT
    V_VT(&variant_) = VT_DISPATCH;
    V_DISPATCH(&variant_) = object;
    if (object != nullptr) object->AddRef();
  }
  Value(const Value& other) : Value() { VariantCopy(&variant_, const_cast<VARIANT*>(&other.variant_)); }
  Value& operator=(const Value& other) {
    if (this != &other) VariantCopy(&variant_, const_cast<VARIANT*>(&other.variant_));
    return *this;
  }
  ~Value() { VariantClear(&variant_); }

  VARIANT* raw() { return &variant_; }
  const VARIANT& variant() const { return variant_; }
  VARTYPE type() const { return V_VT(&variant_); }
  // Each answers a default for a value of another kind.
  int number() const;
  double real() const;
  bool truth() const;
  std::wstring text() const;
  // Borrowed; null for none.
  IDispatch* object() const;

 private:
  VARIANT variant_;
};

// An argument of a call.
struct Argument {
  Argument(Value given) : value(std::move(given)) {}  // NOLINT
  Argument(int number) : value(number) {}             // NOLINT
  Argument(bool truth) : value(truth) {}              // NOLINT
  Argument(double number) : value(number) {}          // NOLINT
  Argument(const wchar_t* text) : value(text) {}      // NOLINT
  Argument(IDispatch* object) : value(object) {}      // NOLINT

  Value value;
  Value* out = nullptr;  // receives what is written back
  bool missing = false;
  std::wstring name;
};

Argument ByRef(Value& variable);
Argument Missing();
Argument Named(const wchar_t* name, Value value);

// What came of a call.
struct Outcome {
  HRESULT code = S_OK;
  Value result;
  // Of a failing operation: its number (the low half of an automation result code, 0 otherwise), and its
  // texts.
  int error = 0;
  std::wstring source;
  std::wstring description;
};

enum class Access { Method, Get, Put, PutRef };

// The way calls take. There are two, so that every check runs through both.
class Door {
 public:
  virtual ~Door() = default;
  virtual const char* name() const = 0;
  virtual Outcome Call(IDispatch* object, const wchar_t* member, Access access,
                       const std::vector<Argument>& arguments) = 0;
};

Door& LateBound();
Door& ThroughTypeLibrary();

// Every member called with success so far, as "class.get member", for the check that none was forgotten.
const std::vector<std::string>& CalledMembers();
void ForgetCalls();
void NoteCall(IDispatch* object, const wchar_t* member, Access access);

// A new object of the class, by its program id "Vestrel." + name; none when that fails.
Value Create(const wchar_t* className);
// The name of the object's class interface without its underscore.
std::wstring ClassName(IDispatch* object);

}  // namespace host
