// The virtual table of a class, made from its table of operations: one small function a slot, with the
// calling convention and the arguments that hosts see. By-reference arguments and results are pointers
// whatever their type, so slots of the same shape share a function.
#pragma once

#include <array>
#include <tuple>
#include <type_traits>

#include "component/Table.h"
#include "component/com/EarlyCall.h"
#include "component/com/Wrapper.h"

namespace vestrel::component {

// The form in which a value of C++ type T travels by value.
template <class T>
struct Travelling {
  using Type = T;  // numbers
};
template <class T>
requires std::is_enum_v<T>
struct Travelling<T> {
  using Type = LONG;
};
template <>
struct Travelling<bool> {
  using Type = VARIANT_BOOL;
};
template <>
struct Travelling<std::u16string> {
  using Type = BSTR;
};
template <>
struct Travelling<std::u16string_view> {
  using Type = BSTR;
};
template <>
struct Travelling<Variant> {
  using Type = VARIANT;
};
template <class T>
struct Travelling<Ref<T>> {
  using Type = IUnknown*;
};

namespace detail {

// A pointer argument is handed on, the address of any other.
inline void* AddressOf(void*& argument) noexcept {
  return argument;
}
template <class A>
void* AddressOf(A& argument) noexcept {
  return &argument;
}

template <int kSlot, class... A>
HRESULT STDMETHODCALLTYPE Thunk(Face* face, A... arguments) noexcept {
  void* const list[] = {AddressOf(arguments)..., nullptr};
  return CallThroughTable(*face, kSlot, list, nullptr);
}

// With a result, which travels last.
template <int kSlot, class... A>
struct ResultThunk {
  static HRESULT STDMETHODCALLTYPE Call(Face* face, A... arguments, void* result) noexcept {
    void* const list[] = {AddressOf(arguments)..., nullptr};
    return CallThroughTable(*face, kSlot, list, result);
  }
};

// The types of a slot's arguments from its table entry.
template <class E, class Arguments>
struct Shape;

template <class E, class... A>
struct Shape<E, std::tuple<A...>> {
  static constexpr bool kIsPut = E::kKind == Kind::Put || E::kKind == Kind::PutRef;

  template <std::size_t I, class X>
  using At = std::conditional_t<E::kByValue || (kIsPut && I + 1 == sizeof...(A)),
                                typename Travelling<typename Argument<X>::Value>::Type, void*>;

  template <int kSlot, std::size_t... I>
  static const void* Make(bool hasResult, std::index_sequence<I...>) {
    return hasResult ? reinterpret_cast<const void*>(&ResultThunk<kSlot, At<I, A>...>::Call)
                     : reinterpret_cast<const void*>(&Thunk<kSlot, At<I, A>...>);
  }
};

template <class E, int kSlot>
const void* ThunkFor() {
  using S = typename E::MemberSignature;
  if constexpr (!S::kIsData) {
    using Arguments = typename S::Arguments;
    constexpr bool kHasResult =
        !std::is_void_v<typename S::Result> && (E::kKind == Kind::Method || E::kKind == Kind::Get);
    return Shape<E, Arguments>::template Make<kSlot>(
        kHasResult, std::make_index_sequence<std::tuple_size_v<Arguments>>());
  } else if constexpr (E::kKind == Kind::Get) {
    return reinterpret_cast<const void*>(&ResultThunk<kSlot>::Call);
  } else {
    return reinterpret_cast<const void*>(&Thunk<kSlot, typename Travelling<typename S::Type>::Type>);
  }
}

template <class T>
struct VirtualTable {
  using Entries = std::remove_cvref_t<decltype(TableOf<T>::kTable.entries)>;
  static constexpr std::size_t kSize = std::tuple_size_v<Entries>;

  template <std::size_t... I>
  static std::array<const void*, kDispatchSlots + kSize> Make(std::index_sequence<I...>) {
    const auto dispatch = DispatchMethods();
    return {dispatch[0], dispatch[1],
            dispatch[2], dispatch[3],
            dispatch[4], dispatch[5],
            dispatch[6], ThunkFor<std::tuple_element_t<I, Entries>, static_cast<int>(I)>()...};
  }
};

}  // namespace detail

// Made once, for ever.
template <class T>
const void* const* VirtualTableOf() {
  using Table = detail::VirtualTable<T>;
  static const auto table = Table::Make(std::make_index_sequence<Table::kSize>());
  return table.data();
}

// What T is to the component system; defined in one source file for each class by the macro below.
template <class T>
const FaceClass& FaceClassOf();

FaceClass MakeFaceClass(const ClassInfo& info, const void* const* vtable);

#define VESTREL_FACE_CLASS(Class)                                                            \
  template <>                                                                                \
  const FaceClass& FaceClassOf<Class>() {                                                    \
    static const FaceClass result = MakeFaceClass(InfoOf<Class>(), VirtualTableOf<Class>()); \
    return result;                                                                           \
  }

}  // namespace vestrel::component
