#include "component/com/Wrapper.h"

#include <mutex>
#include <unordered_map>

#include "component/com/Dispatch.h"
#include "component/com/Module.h"
#include "component/com/TypeInformation.h"

namespace vestrel::component {
namespace {

// Answered by our own objects only: the interface pointer that QueryInterface gives for it is the face.
constexpr IID kOwnObject = {0x6B0B5D10, 0x8C0E, 0x4D0B, {0x9E, 0x51, 0x2F, 0x6A, 0x3C, 0x1D, 0x77, 0x40}};

// Objects belong to one apartment each, but there may be several apartments.
class Wrappers {
 public:
  // The object's wrapper with one more reference, or the one that `make` makes.
  template <class Make>
  Wrapper* FindOrMake(Object* object, Make make) {
    const std::lock_guard lock(mutex_);
    auto [entry, added] = byObject_.try_emplace(object, nullptr);
    if (!added) {
      entry->second->AddRef();
      return entry->second;
    }
    try {
      return entry->second = make();
    } catch (...) {
      byObject_.erase(entry);
      throw;
    }
  }
  void Remove(Object* object) {
    const std::lock_guard lock(mutex_);
    byObject_.erase(object);
  }

 private:
  std::mutex mutex_;
  std::unordered_map<Object*, Wrapper*> byObject_;
};

Wrappers& wrappers() {
  static Wrappers instance;
  return instance;
}

std::atomic<long> count{0};

Face* FaceOf(void* pointer) noexcept {
  return static_cast<Face*>(pointer);
}

HRESULT STDMETHODCALLTYPE FaceQueryInterface(void* face, REFIID id, void** result) {
  return FaceOf(face)->owner->QueryInterface(id, result);
}
ULONG STDMETHODCALLTYPE FaceAddRef(void* face) {
  return FaceOf(face)->owner->AddRef();
}
ULONG STDMETHODCALLTYPE FaceRelease(void* face) {
  return FaceOf(face)->owner->Release();
}

HRESULT STDMETHODCALLTYPE FaceSupportsErrorInfo(void* /*face*/, REFIID id) {
  for (const FaceClass* faceClass : AllFaceClasses()) {
    if (faceClass->id == id) return S_OK;
  }
  return S_FALSE;
}

HRESULT STDMETHODCALLTYPE FaceGetClassInfo(void* face, ITypeInfo** result) {
  if (result == nullptr) return E_POINTER;
  return TypeInformationOf(FaceOf(face)->owner->faceClass().classId, result);
}

template <class Function>
const void* Address(Function* function) noexcept {
  return reinterpret_cast<const void*>(function);
}

const void* const* ErrorSupportTable() {
  static const std::array table{Address(FaceQueryInterface), Address(FaceAddRef), Address(FaceRelease),
                                Address(FaceSupportsErrorInfo)};
  return table.data();
}

const void* const* ClassProviderTable() {
  static const std::array table{Address(FaceQueryInterface), Address(FaceAddRef), Address(FaceRelease),
                                Address(FaceGetClassInfo)};
  return table.data();
}

}  // namespace

std::array<const void*, kDispatchSlots> DispatchMethods() noexcept {
  return {Address(FaceQueryInterface), Address(FaceAddRef),
          Address(FaceRelease),        Address(FaceGetTypeInfoCount),
          Address(FaceGetTypeInfo),    Address(FaceGetIDsOfNames),
          Address(FaceInvoke)};
}

Wrapper* Wrapper::Get(Object& object) {
  const ClassInfo* info = ClassOf(object);
  if (info == nullptr) return nullptr;
  return wrappers().FindOrMake(&object, [&] { return new Wrapper(object, *FindFaceClass(*info)); });
}

Object* Wrapper::CoreOf(IUnknown* pointer) noexcept {
  void* face = nullptr;
  if (pointer == nullptr || FAILED(pointer->QueryInterface(kOwnObject, &face))) return nullptr;
  Wrapper* wrapper = FaceOf(face)->owner;
  wrapper->Release();  // the caller's own reference keeps it
  return &wrapper->core();
}

long Wrapper::Count() noexcept {
  return count;
}

Wrapper::Wrapper(Object& object, const FaceClass& faceClass) : core_(&object) {
  AddFace(faceClass);
  for (const std::string_view name : faceClass.info->description->interfaces()) AddFace(*FindFaceClass(name));
  errorSupport_ = {ErrorSupportTable(), this, nullptr, nullptr};
  classProvider_ = {ClassProviderTable(), this, nullptr, nullptr};
  ++count;
}

Wrapper::~Wrapper() {
  core_ = {};  // which may call back
  --count;
}

void Wrapper::AddFace(const FaceClass& faceClass) {
  for (Face& face : faces_) {
    if (face.owner != nullptr) continue;
    face = {faceClass.vtable, this, core_->Query(faceClass.info->key), &faceClass};
    return;
  }
}

IUnknown* Wrapper::FindFace(std::string_view className) noexcept {
  for (Face& face : faces_) {
    if (face.owner != nullptr && face.faceClass->info->description->name() == className) {
      return reinterpret_cast<IUnknown*>(&face);
    }
  }
  return nullptr;
}

HRESULT Wrapper::QueryInterface(const IID& id, void** result) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  if (id == IID_IUnknown || id == IID_IDispatch || id == kOwnObject) *result = faces_.data();
  for (Face& face : faces_) {
    if (face.owner != nullptr && face.faceClass->id == id) *result = &face;
  }
  if (id == IID_ISupportErrorInfo) *result = &errorSupport_;
  if (id == IID_IProvideClassInfo) *result = &classProvider_;
  if (*result == nullptr) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG Wrapper::Release() noexcept {
  const ULONG left = --references_;
  if (left == 0) {
    wrappers().Remove(core_.get());
    delete this;
  }
  return left;
}

}  // namespace vestrel::component
