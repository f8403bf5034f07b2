// Calls every operation with everything that is wrong - counts, types, nulls, foreign objects, objects whose
// owners are gone, references that lead nowhere - and then many chosen at random. What happens is not looked
// at but for the codes of what must be refused: the program comes to its end or it does not.
#include <cstdlib>

#include "tests/component/host/NullPointers.h"
#include "tests/component/host/Program.h"
#include "tests/component/host/Published.h"
#include "tests/component/host/RandomCaller.h"
#include "tests/component/host/Registry.h"

namespace host {
namespace {

void WrongCounts(const std::vector<Class>& classes) {
  for (const Class& tried : classes) {
    for (const Member& member : tried.members) {
      const Value object = Make(tried);
      VARIANT number;
      VariantInit(&number);
      std::vector<VARIANT> tooMany(member.places.size() + 1, number);
      CHECK_EQ(Invoke(object, member, tooMany), DISP_E_BADPARAMCOUNT);
      std::vector<VARIANT> hundred(100, number);
      CHECK_EQ(Invoke(object, member, hundred), DISP_E_BADPARAMCOUNT);
      if (member.required == 0) continue;
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
      if (member.places.size() == 0) continue;
      VARIANT circle;
      V_VT(&circle) = VT_BYREF | VT_VARIANT;
      V_VARIANTREF(&circle) = &circle;
      std::vector<VARIANT> circles(member.places.size(), circle);
      CHECK_EQ(Invoke(object, member, circles), E_INVALIDARG);
      VARIANT nothing;
      V_VT(&nothing) = VT_BYREF | VT_I4;
      V_I4REF(&nothing) = nullptr;
      V_VARIANTREF(&circle) = &nothing;
      std::vector<VARIANT> nulls(member.places.size(), circle);
      CHECK_EQ(Invoke(object, member, nulls), E_INVALIDARG);
    }
  }
}

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
    const Member fromArray{IdOf(helper, L"StringListFrom"), DISPATCH_METHOD, 1, {}};
    CHECK_EQ(Invoke(helper, fromArray, one), DISP_E_TYPEMISMATCH);
    const Member intoArray{IdOf(capture, L"ParseItems"), DISPATCH_METHOD, 1, {}};
    CHECK_EQ(Invoke(capture, intoArray, one), DISP_E_TYPEMISMATCH);
    for (const Class& tried : classes) {
      const Value object = Make(tried);
      for (const Member& member : tried.members) {
        std::vector<VARIANT> everywhere(member.places.size(), array);
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
        std::vector<VARIANT> plain(member.places.size(), variable.variant());
        Invoke(object, member, plain, result.raw());
        VARIANT reference;
        V_VT(&reference) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&reference) = variable.raw();
        std::vector<VARIANT> references(member.places.size(), reference);
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

// What a host still holds when it has let go of everything that owned it.
std::vector<Value> Orphans() {
  std::vector<Value> left;
  const auto keep = [&left](const Value& object) {
    left.push_back(object);
    return object;
  };
  const std::wstring root = folder.substr(0, folder.size() - 1);
  for (int round = 0; round < 2; ++round) {
    const Value recorder = Create(L"clsRecordController");
    Call(recorder, L"Init", {Create(L"IRecordEventHandler")});
    keep(Get(recorder, L"EventList"));
    const Value controller = Create(L"clsButtonGroupController");
    Call(controller, L"Init",
         {Create(L"IFormSequenceShortcuts"), root.c_str(), Create(L"ILEDSetter"), recorder});
    Call(controller, L"setButtonGroupPageSize", {4});
    Call(controller, L"CreateNewShow", {L"Gala"});
    Call(controller, L"AddPage", {L"One"});
    Call(controller, L"assignButton", {2, 1, L"Intro", 1});
    keep(Get(controller, L"mLEDManager"));
    const Value page = keep(Get(keep(Get(controller, L"PageManager")), L"CurrentPage"));
    const Value group = keep(Get(page, L"ButtonGroups", {2}));
    keep(Get(group, L"Fader"));
    const Value buttons = keep(Get(group, L"buttons"));
    keep(Call(buttons, L"BeginIter"));
    keep(Get(keep(Call(buttons, L"GetItem", {0})), L"Fader"));
    // In the second round the show is replaced before the controller goes.
    if (round == 1) Call(controller, L"CreateNewShow", {L"Other"});
  }
  return left;
}

void OrphanedObjects(const std::vector<Class>& classes) {
  const std::vector<Value> left = Orphans();
  OddValues odd;
  for (const Value& object : left) {
    const Class* known = ClassOf(classes, object.object());
    CHECK(known != nullptr);
    if (known == nullptr) continue;
    for (const Member& member : known->members) {
      for (std::size_t i = 0; i < odd.size() + left.size(); ++i) {
        const Value& value = i < odd.size() ? odd[i] : left[i - odd.size()];
        std::vector<VARIANT> arguments(member.places.size(), value.variant());
        Value result;
        Invoke(object, member, arguments, result.raw());
      }
    }
  }
}

void RandomCalls(const std::vector<Class>& classes, int rounds) {
  int initialised = 0;
  for (int round = 0; round < rounds; ++round) {
    RandomCaller caller(classes, static_cast<unsigned>(round));
    for (int i = 0; i < 250; ++i) caller.Call();
    initialised += caller.initialised();
  }
  // Otherwise the calls would end at objects that are not set up.
  CHECK(initialised > rounds);
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
  OrphanedObjects(classes);
  NullPointers(classes);
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
