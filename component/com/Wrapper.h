// The component object in front of one core object. It keeps the core object alive; the core object knows
// nothing of it. A core object has at most one wrapper at a time, so that identity holds; the wrapper goes
// with the last reference a host holds, and a new one is made when the object is handed out again.
//
// A wrapper shows one face for the class's own interface and one for each interface that the class
// implements. A host's interface pointer is the address of a face.
#pragma once

#include <array>
#include <atomic>

#include "component/ClassInfo.h"
#include "component/com/Windows.h"

namespace vestrel::component {

class Wrapper;

// What a class is to the component system; one a class, for ever.
struct FaceClass {
  const ClassInfo* info = nullptr;
  IID id{};
  CLSID classId{};
  const void* const* vtable = nullptr;
};

struct Face {
  const void* const* vtable = nullptr;  // first: this is what makes its address an interface pointer
  Wrapper* owner = nullptr;
  void* self = nullptr;  // the core object as the class or interface of this face
  const FaceClass* faceClass = nullptr;
};

// All classes, in the order of component/Classes.h.
std::span<const FaceClass* const> AllFaceClasses();
const FaceClass* FindFaceClass(const ClassInfo& info);
const FaceClass* FindFaceClass(std::string_view name);
const FaceClass* FindFaceClass(const CLSID& classId);

class Wrapper {
 public:
  // The object's wrapper with a reference for the caller; none for an object of no published class.
  static Wrapper* Get(Object& object);
  // The core object behind an interface pointer of ours, or null for a host's object. Borrowed.
  static Object* CoreOf(IUnknown* pointer) noexcept;
  // How many there are.
  static long Count() noexcept;

  Wrapper(const Wrapper&) = delete;
  Wrapper& operator=(const Wrapper&) = delete;

  HRESULT QueryInterface(const IID& id, void** result) noexcept;
  ULONG AddRef() noexcept { return ++references_; }
  ULONG Release() noexcept;

  Object& core() const noexcept { return *core_; }
  const FaceClass& faceClass() const noexcept { return *faces_[0].faceClass; }
  // The face for the class or interface of that name, or null.
  IUnknown* FindFace(std::string_view className) noexcept;
  IDispatch* dispatch() noexcept { return reinterpret_cast<IDispatch*>(faces_.data()); }

 private:
  static constexpr std::size_t kMaxFaces = 3;

  Wrapper(Object& object, const FaceClass& faceClass);
  ~Wrapper();
  void AddFace(const FaceClass& faceClass);

  std::atomic<ULONG> references_{1};
  Ref<Object> core_;
  std::array<Face, kMaxFaces> faces_;
  Face errorSupport_;
  Face classProvider_;
};

// The methods of IUnknown and IDispatch that every virtual table begins with.
inline constexpr std::size_t kDispatchSlots = 7;
std::array<const void*, kDispatchSlots> DispatchMethods() noexcept;

}  // namespace vestrel::component
