// What the type library publishes, as far as callers that mean no good need it, and values for them.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "tests/component/host/EarlyHost.h"
#include "tests/component/host/ScriptedHost.h"
#include "tests/component/host/Session.h"

namespace host {

enum class Fits { Number, Boolean, Text, Object, Array, Record, Anything };

// A place for an argument.
struct Place {
  Fits fits = Fits::Anything;
  GUID interfaceId = IID_IDispatch;  // of an object
};

struct Member {
  DISPID id = 0;
  WORD flags = 0;
  std::size_t required = 0;
  std::vector<Place> places;
};

struct Class {
  CLSID id{};
  std::wstring name;
  std::vector<Member> members;
};

// Every class of the library at `path`, with the members of its own interface.
std::vector<Class> ReadClasses(const wchar_t* path);
// The class of an object among these, or null.
const Class* ClassOf(const std::vector<Class>& classes, IDispatch* object);

Value Make(const Class& made);

// The arguments in reverse order.
HRESULT Invoke(const Value& object, const Member& member, std::vector<VARIANT>& reversed,
               VARIANT* result = nullptr);

// Values that fit few places. Borrowed by calls.
class OddValues {
 public:
  OddValues() {
    values_ = {
        Value(),    Value(true), Value(0),     Value(-1),           Value(3), Value(2147483647), Value(1e300),
        Value(0.5), Value(L""),  Value(L"12"), Value(L"no number"), None(),   Value(&host_)};
    Value null;
    V_VT(null.raw()) = VT_NULL;
    values_.push_back(null);
    Value error;
    V_VT(error.raw()) = VT_ERROR;
    V_ERROR(error.raw()) = E_FAIL;
    values_.push_back(error);
    values_.push_back(Value(std::wstring(3000, L'x').c_str()));
    values_.push_back(Array(0));
    values_.push_back(Array(3));
    Value date;
    V_VT(date.raw()) = VT_DATE;
    V_DATE(date.raw()) = 45000.5;
    values_.push_back(date);
    Value wide;
    V_VT(wide.raw()) = VT_I8;
    V_I8(wide.raw()) = 0x7FFFFFFFFFFFFFFF;
    values_.push_back(wide);
  }
  std::size_t size() const { return values_.size(); }
  Value& operator[](std::size_t i) { return values_[i]; }

 private:
  static Value Array(ULONG size) {
    Value array;
    V_VT(array.raw()) = VT_ARRAY | VT_VARIANT;
    V_ARRAY(array.raw()) = SafeArrayCreateVector(VT_VARIANT, 0, size);
    return array;
  }

  // A host's object that has no operation of any interface, and one that fails.
  ScriptedHost host_{{L"Nothing"}};
  std::vector<Value> values_;
};

// Arrays of two whose last element leads to no value. They are borrowed as they are: a copy would be refused.
class BadArrays {
 public:
  explicit BadArrays(const wchar_t* path) {
    VARIANT& nothing = LastOf(0);
    V_VT(&nothing) = VT_BYREF | VT_I4;
    V_I4REF(&nothing) = nullptr;
    VARIANT& circle = LastOf(1);
    V_VT(&circle) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&circle) = &circle;
    VARIANT& record = LastOf(2);
    V_VT(&record) = VT_BYREF | VT_RECORD;
    V_RECORD(&record) = &record;
    V_RECORDINFO(&record) = nullptr;
    V_VT(&values_[3]) = VT_ARRAY | VT_RECORD;
    V_ARRAY(&values_[3]) = SafeArrayCreateVectorEx(VT_RECORD, 0, 2, RecordOf(path).get());
  }
  BadArrays(const BadArrays&) = delete;
  BadArrays& operator=(const BadArrays&) = delete;
  ~BadArrays() {
    for (VARIANT& value : values_) SafeArrayDestroy(V_ARRAY(&value));
  }

  std::array<VARIANT, 4>& values() { return values_; }

 private:
  static Pointer<IRecordInfo> RecordOf(const wchar_t* path) {
    Pointer<ITypeLib> library;
    Pointer<ITypeInfo> type;
    Pointer<IRecordInfo> result;
    MEMBERID member = 0;
    USHORT found = 1;
    LoadTypeLibEx(path, REGKIND_NONE, library.out());
    library->FindName(Text(L"TUIFaderValues").get(), 0, type.out(), &member, &found);
    GetRecordInfoFromTypeInfo(type.get(), result.out());
    return result;
  }
  VARIANT& LastOf(std::size_t which) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, 2);
    V_VT(&values_[which]) = VT_ARRAY | VT_VARIANT;
    V_ARRAY(&values_[which]) = array;
    return static_cast<VARIANT*>(array->pvData)[1];
  }

  std::array<VARIANT, 4> values_;
};

}  // namespace host
