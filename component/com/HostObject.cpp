#include "component/com/HostObject.h"

#include <map>
#include <mutex>
#include <utility>
#include <vector>

#include "component/com/Failure.h"
#include "component/com/HostAdapters.h"
#include "component/com/Values.h"
#include "component/com/Wrapper.h"
#include "core/Cast.h"
#include "core/HasValue.h"

namespace vestrel::component {
namespace {

// An object that belongs to no apartment may be known to several; each has its own core object for it.
using Identity = std::pair<DWORD, IUnknown*>;

class HostObject;

class HostObjects {
 public:
  HostObject* Find(const Identity& identity) {
    const std::lock_guard lock(mutex_);
    const auto found = byIdentity_.find(identity);
    return found == byIdentity_.end() ? nullptr : found->second;
  }
  void Add(const Identity& identity, HostObject* object) {
    const std::lock_guard lock(mutex_);
    byIdentity_.emplace(identity, object);
  }
  // Another object may have been entered for it while this one was made.
  void Remove(const Identity& identity, const HostObject* object) {
    const std::lock_guard lock(mutex_);
    const auto found = byIdentity_.find(identity);
    if (found != byIdentity_.end() && found->second == object) byIdentity_.erase(found);
  }

 private:
  std::mutex mutex_;
  std::map<Identity, HostObject*> byIdentity_;
};

HostObjects& hostObjects() {
  static HostObjects instance;
  return instance;
}

class HostObject final : public Object, public HasValue {
 public:
  explicit HostObject(ComPtr<IUnknown> identity)
      : identity_(GetCurrentThreadId(), identity.get()),
        reference_{identity, Ask<IDispatch>(identity.get(), IID_IDispatch)} {
    hostObjects().Add(identity_, this);
  }

  static Ref<Object> For(IUnknown* pointer) {
    ComPtr<IUnknown> identity = Ask<IUnknown>(pointer, IID_IUnknown);
    if (!identity) throw ComFailure{E_NOINTERFACE};
    if (HostObject* known = hostObjects().Find({GetCurrentThreadId(), identity.get()}))
      return Ref<Object>(known);
    return MakeRef<HostObject>(std::move(identity));
  }

  void* Query(TypeKey key) noexcept override {
    if (key == KeyOf<HostReference>()) return &reference_;
    if (key == KeyOf<HasValue>()) return reference_.dispatch ? static_cast<HasValue*>(this) : nullptr;
    try {
      return QueryAdapter(key);
    } catch (...) {
      return nullptr;  // no memory, or the host failed to say what it implements
    }
  }

  Variant DefaultValue() const override {
    AutoVariant value;
    V_VT(&value) = VT_DISPATCH;
    V_DISPATCH(&value) = ComPtr<IDispatch>(reference_.dispatch).Detach();
    AutoVariant text;
    try {
      Convert(value, VT_BSTR, text);
    } catch (const ComFailure& failure) {
      RaiseHostFailure(failure.code);
    }
    return ViewOf(V_BSTR(&text));
  }

 protected:
  ~HostObject() override { hostObjects().Remove(identity_, this); }

 private:
  void* QueryAdapter(TypeKey key) {
    for (const auto& [known, adapter] : adapters_) {
      if (known == key) return adapter->Query(key);
    }
    Ref<Object> adapter = AdaptHost(key, reference_);
    if (!adapter) return nullptr;
    adapters_.emplace_back(key, adapter);
    return adapter->Query(key);
  }

  Identity identity_;
  HostReference reference_;
  std::vector<std::pair<TypeKey, Ref<Object>>> adapters_;
};

Wrapper& WrapperOf(Object& object) {
  Wrapper* wrapper = Wrapper::Get(object);
  if (wrapper == nullptr) throw ComFailure{E_NOINTERFACE};
  return *wrapper;
}

}  // namespace

Ref<Object> ObjectFrom(IUnknown* pointer) {
  if (pointer == nullptr) return {};
  if (Object* own = Wrapper::CoreOf(pointer)) return own;
  return HostObject::For(pointer);
}

IDispatch* DispatchFor(Object* object) {
  if (object == nullptr) return nullptr;
  if (const auto* host = TryCast<HostReference>(object)) {
    if (!host->dispatch) throw ComFailure{E_NOINTERFACE};
    return ComPtr<IDispatch>(host->dispatch).Detach();
  }
  return WrapperOf(*object).dispatch();
}

IUnknown* InterfaceFor(Object* object, std::string_view className) {
  if (object == nullptr || className.empty()) return DispatchFor(object);
  if (const auto* host = TryCast<HostReference>(object)) {
    auto result = Ask<IUnknown>(host->identity.get(), FindFaceClass(className)->id);
    if (!result) throw ComFailure{E_NOINTERFACE};
    return result.Detach();
  }
  Wrapper& wrapper = WrapperOf(*object);
  if (IUnknown* face = wrapper.FindFace(className)) return face;  // the wrapper's reference is the caller's
  wrapper.Release();
  throw ComFailure{E_NOINTERFACE};
}

}  // namespace vestrel::component
