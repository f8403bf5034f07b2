// Calls every operation late bound with everything that is wrong - counts, types, nulls, foreign objects,
// references that lead nowhere - and then many chosen at random. What happens is not looked
// at but for the codes of wrong counts: the program comes to its end or it does not.
#include <array>
#include <cstdlib>
#include <random>

#include "tests/component/host/Check.h"
#include "tests/component/host/EarlyHost.h"
#include "tests/component/host/Program.h"
#include "tests/component/host/Registry.h"
#include "tests/component/host/ScriptedHost.h"
#include "tests/component/host/Session.h"

namespace host {
namespace {

struct Member {
  DISPID id = 0;
  WORD flags = 0;
  std::size_t parameters = 0;
  std::size_t required = 0;
};

struct Class {
  CLSID id{};
  std::vector<Member> members;
};

// Everything the type library publishes.
std::vector<Class> ReadClasses(const wchar_t* path) {
  std::vector<Class> classes;
  Pointer<ITypeLib> library;
  if (FAILED(LoadTypeLibEx(path, REGKIND_NONE, library.out()))) return classes;
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    Pointer<ITypeInfo> type;
    TYPEATTR* attributes = nullptr;
    library->GetTypeInfo(i, type.out());
    type->GetTypeAttr(&attributes);
    const bool isClass = attributes->typekind == TKIND_COCLASS;
    Class found{attributes->guid, {}};
    type->ReleaseTypeAttr(attributes);
    if (!isClass) continue;
    Pointer<ITypeInfo> face;
    HREFTYPE reference = 0;
    type->GetRefTypeOfImplType(0, &reference);
    type->GetRefTypeInfo(reference, face.out());
    FUNCDESC* function = nullptr;
    for (UINT f = 0; SUCCEEDED(face->GetFuncDesc(f, &function)); ++f) {
      Member member{function->memid, static_cast<WORD>(function->invkind), 0, 0};
      for (SHORT p = 0; p < function->cParams; ++p) {
        const USHORT flags = function->lprgelemdescParam[p].paramdesc.wParamFlags;
        if ((flags & PARAMFLAG_FRETVAL) != 0) continue;
        ++member.parameters;
        if ((flags & PARAMFLAG_FOPT) == 0) member.required = member.parameters;
      }
      face->ReleaseFuncDesc(function);
      // What every dispatch interface has is not the library's.
      if (member.id < 0x60000000) found.members.push_back(member);
    }
    classes.push_back(std::move(found));
  }
  return classes;
}

Value Make(const Class& made) {
  IDispatch* object = nullptr;
  CoCreateInstance(made.id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, reinterpret_cast<void**>(&object));
  Value result(object);
  if (object != nullptr) object->Release();
  return result;
}

HRESULT Invoke(const Value& object, const Member& member, std::vector<VARIANT>& reversed,
               VARIANT* result = nullptr) {
  DISPID put = DISPID_PROPERTYPUT;
  const bool isPut =
      (member.flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0 && !reversed.empty();
  DISPPARAMS parameters{reversed.data(), isPut ? &put : nullptr, static_cast<UINT>(reversed.size()),
                        isPut ? 1U : 0U};
  EXCEPINFO information{};
  UINT argument = 0;
  const HRESULT code = object.object()->Invoke(member.id, IID_NULL, LOCALE_USER_DEFAULT, member.flags,
                                               &parameters, result, &information, &argument);
  SysFreeString(information.bstrSource);
  SysFreeString(information.bstrDescription);
  return code;
}

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

void WrongCounts(const std::vector<Class>& classes) {
  for (const Class& tried : classes) {
    for (const Member& member : tried.members) {
      const Value object = Make(tried);
      VARIANT number;
      VariantInit(&number);
      std::vector<VARIANT> tooMany(member.parameters + 1, number);
      CHECK_EQ(Invoke(object, member, tooMany), DISP_E_BADPARAMCOUNT);
      std::vector<VARIANT> hundred(100, number);
      CHECK_EQ(Invoke(object, member, hundred), DISP_E_BADPARAMCOUNT);
      if (member.required == 0 || member.flags != DISPATCH_METHOD) continue;
      std::vector<VARIANT> tooFew(member.required - 1, number);
      CHECK_EQ(Invoke(object, member, tooFew), DISP_E_BADPARAMCOUNT);
    }
  }
}

// A variable that refers to itself, and a reference to a reference to nothing.
void ReferencesThatLeadNowhere(const std::vector<Class>& classes) {
  for (const Class& tried : classes) {
    const Value object = Make(tried);
    for (const Member& member : tried.members) {
      if (member.parameters == 0) continue;
      VARIANT circle;
      V_VT(&circle) = VT_BYREF | VT_VARIANT;
      V_VARIANTREF(&circle) = &circle;
      std::vector<VARIANT> circles(member.parameters, circle);
      CHECK_EQ(Invoke(object, member, circles), E_INVALIDARG);
      VARIANT nothing;
      V_VT(&nothing) = VT_BYREF | VT_I4;
      V_I4REF(&nothing) = nullptr;
      V_VARIANTREF(&circle) = &nothing;
      std::vector<VARIANT> nulls(member.parameters, circle);
      CHECK_EQ(Invoke(object, member, nulls), E_INVALIDARG);
    }
  }
}

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

DISPID IdOf(const Value& object, const wchar_t* name) {
  DISPID id = DISPID_UNKNOWN;
  auto* text = const_cast<LPOLESTR>(name);
  object.object()->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

void ArraysThatLeadNowhere(const std::vector<Class>& classes, const wchar_t* path) {
  BadArrays arrays(path);
  const Value helper = Create(L"VestrelStatic");
  const Value capture = Create(L"clsFormatCapture");
  Call(capture, L"DoMatch", {L"#:#", L"1:2"});
  for (VARIANT& array : arrays.values()) {
    CHECK(V_ARRAY(&array) != nullptr);
    std::vector<VARIANT> one{array};
    const Member fromArray{IdOf(helper, L"StringListFrom"), DISPATCH_METHOD, 1, 1};
    CHECK_EQ(Invoke(helper, fromArray, one), DISP_E_TYPEMISMATCH);
    const Member intoArray{IdOf(capture, L"ParseItems"), DISPATCH_METHOD, 1, 1};
    CHECK_EQ(Invoke(capture, intoArray, one), DISP_E_TYPEMISMATCH);
    for (const Class& tried : classes) {
      const Value object = Make(tried);
      for (const Member& member : tried.members) {
        std::vector<VARIANT> everywhere(member.parameters, array);
        Invoke(object, member, everywhere);
      }
    }
  }
}

// Each value in every place, as itself and by reference; the object as its own argument.
void OddArguments(const std::vector<Class>& classes) {
  OddValues odd;
  for (const Class& tried : classes) {
    const Value object = Make(tried);
    for (const Member& member : tried.members) {
      for (std::size_t i = 0; i <= odd.size(); ++i) {
        Value variable = i < odd.size() ? odd[i] : object;
        Value result;
        std::vector<VARIANT> plain(member.parameters, variable.variant());
        Invoke(object, member, plain, result.raw());
        VARIANT reference;
        V_VT(&reference) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&reference) = variable.raw();
        std::vector<VARIANT> references(member.parameters, reference);
        Value again;
        Invoke(object, member, references, again.raw());
      }
    }
  }
  Checked(true, "odd arguments were survived", "", 0);
}

// Strange uses of Invoke and GetIDsOfNames themselves.
void OddDoors(const std::vector<Class>& classes) {
  for (const Class& tried : classes) {
    const Value object = Make(tried);
    IDispatch* late = object.object();
    DISPPARAMS none{nullptr, nullptr, 0, 0};
    VARIANT value;
    VariantInit(&value);
    DISPID named[2] = {0, 0};
    DISPPARAMS more{&value, named, 1, 2};
    CHECK(FAILED(late->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr)));
    CHECK(FAILED(late->Invoke(1, IID_IUnknown, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr)));
    CHECK(FAILED(late->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &more, nullptr, nullptr, nullptr)));
    for (const DISPID id : {DISPID{0}, DISPID{-1}, DISPID{-5}, DISPID{9999}, DISPID{2147483647}}) {
      for (const WORD flags :
           {WORD{0}, WORD{1}, WORD{2}, WORD{3}, WORD{4}, WORD{8}, WORD{15}, WORD{0xFFFF}}) {
        late->Invoke(id, IID_NULL, 0, flags, &none, nullptr, nullptr, nullptr);
      }
    }
    for (const Member& member : tried.members) {
      for (const WORD flags : {WORD{0}, WORD{2}, WORD{4}, WORD{8}, WORD{15}}) {
        DISPPARAMS one{&value, nullptr, 1, 0};
        late->Invoke(member.id, IID_NULL, 0, flags, &one, nullptr, nullptr, nullptr);
      }
    }
    auto* name = const_cast<LPOLESTR>(L"");
    DISPID id = 0;
    CHECK(FAILED(late->GetIDsOfNames(IID_NULL, &name, 1, 0, &id)));
    CHECK(FAILED(late->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id)));
    CHECK(FAILED(late->GetIDsOfNames(IID_IUnknown, &name, 1, 0, &id)));
    ITypeInfo* info = nullptr;
    CHECK(FAILED(late->GetTypeInfo(1, 0, &info)));
  }
}

// Calls of any operation with objects and values that earlier calls answered. The seeds are fixed.
class RandomCaller {
 public:
  RandomCaller(const std::vector<Class>& classes, unsigned seed) : classes_(classes), random_(seed) {
    for (std::size_t i = 0; i < classes.size(); ++i) objects_.push_back({i, Make(classes[i])});
  }

  void Call() {
    const auto& [which, object] = objects_[Below(objects_.size())];
    const auto& members = classes_[which].members;
    const Member& member = members[Below(members.size())];
    std::vector<Value> values;
    for (std::size_t i = 0; i < member.parameters; ++i) values.push_back(Any());
    std::vector<VARIANT> arguments;
    for (Value& value : values) arguments.push_back(Below(3) == 0 ? ByReference(value) : value.variant());
    Value result;
    Invoke(object, member, arguments, result.raw());
    Keep(result);
  }

 private:
  std::size_t Below(std::size_t limit) { return random_() % limit; }
  static VARIANT ByReference(Value& value) {
    VARIANT reference;
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = value.raw();
    return reference;
  }
  Value Any() {
    switch (Below(4)) {
      case 0:
        return odd_[Below(odd_.size())];
      case 1:
        return objects_[Below(objects_.size())].second;
      case 2:
        return Value((folder + L"file" + std::to_wstring(Below(3))).c_str());
      default:
        return Value(static_cast<int>(Below(14)) - 2);
    }
  }
  void Keep(const Value& result) {
    if (result.object() == nullptr || objects_.size() > 150) return;
    const std::wstring name = ClassName(result.object());
    for (std::size_t i = 0; i < classes_.size(); ++i) {
      if (ClassName(objects_[i].second.object()) == name) {
        objects_.push_back({i, result});
        return;
      }
    }
  }

  const std::vector<Class>& classes_;
  std::mt19937 random_;
  OddValues odd_;
  std::vector<std::pair<std::size_t, Value>> objects_;
};

void RandomCalls(const std::vector<Class>& classes, int rounds) {
  for (int round = 0; round < rounds; ++round) {
    RandomCaller caller(classes, static_cast<unsigned>(round));
    for (int i = 0; i < 250; ++i) caller.Call();
  }
  Checked(true, "random calls were survived", "", rounds);
}

int WINAPI NoMessageBox(HWND /*owner*/, LPCWSTR /*text*/, LPCWSTR /*caption*/, UINT /*kind*/) {
  return IDOK;
}

int Run(const wchar_t* path, int rounds) {
  CHECK(TurnAside(LoadLibraryW(path), "MessageBoxW", reinterpret_cast<void*>(&NoMessageBox)) != nullptr);
  const std::vector<Class> classes = ReadClasses(path);
  CHECK_EQ(classes.size(), std::size_t{38});
  door = &LateBound();
  for (const Class& found : classes) CHECK(!found.members.empty());
  WrongCounts(classes);
  OddDoors(classes);
  ReferencesThatLeadNowhere(classes);
  ArraysThatLeadNowhere(classes, path);
  OddArguments(classes);
  RandomCalls(classes, rounds);
  return Totals("hostile calls");
}

}  // namespace
}  // namespace host

// Hostile FOLDER LIBRARY ROUNDS: the library, and how many rounds of random calls to make. It works on the
// drive of the Windows system, whatever the folder: paths without a drive lead to no other place there.
int wmain(int count, wchar_t** arguments) {
  return host::Program(count == 4, [&] {
    host::folder = L"C:\\hostile\\";
    CreateDirectoryW(host::folder.c_str(), nullptr);
    if (!SetCurrentDirectoryW(host::folder.c_str())) return 2;
    return host::Run(arguments[2], _wtoi(arguments[3]));
  });
}
