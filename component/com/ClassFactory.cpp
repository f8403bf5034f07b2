#include "component/com/ClassFactory.h"

#include <vector>

#include "component/com/Failure.h"
#include "component/com/Module.h"
#include "component/com/Wrapper.h"

namespace vestrel::component {
namespace {

// Never deleted through its interface: its references are not counted.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const FaceClass& faceClass) : faceClass_(faceClass) {}

  const CLSID& classId() const noexcept { return faceClass_.classId; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    if (result == nullptr) return E_POINTER;
    const bool known = id == IID_IUnknown || id == IID_IClassFactory;
    *result = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** result) override {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    HRESULT answer = E_UNEXPECTED;
    const HRESULT code = Guarded([&] {
      const Ref<Object> object = faceClass_.info->create();
      Wrapper* wrapper = Wrapper::Get(*object);
      answer = wrapper->QueryInterface(id, result);
      wrapper->Release();
    });
    return FAILED(code) ? code : answer;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    LockModule(lock != FALSE);
    return S_OK;
  }

 private:
  const FaceClass& faceClass_;
};
#pragma GCC diagnostic pop

std::vector<ClassFactory> MakeFactories() {
  std::vector<ClassFactory> result;
  for (const FaceClass* faceClass : AllFaceClasses()) result.emplace_back(*faceClass);
  return result;
}

}  // namespace

HRESULT GetClassFactory(const CLSID& classId, const IID& id, void** result) noexcept {
  static auto factories = MakeFactories();
  for (ClassFactory& factory : factories) {
    if (factory.classId() == classId) return factory.QueryInterface(id, result);
  }
  if (result != nullptr) *result = nullptr;
  return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace vestrel::component
