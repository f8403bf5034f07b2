// One line an operation: its slot is found by the member it overrides in the table of the interface.
#include "component/com/HostAdapters.h"

#include "component/com/Failure.h"
#include "component/com/HostLink.h"
#include "component/com/Wrapper.h"
#include "component/tables/IAssignmentCallbackTable.h"
#include "component/tables/IButtonEventHandlerTable.h"
#include "component/tables/IComparableTable.h"
#include "component/tables/IFormSequenceShortcutsTable.h"
#include "component/tables/ILEDSetterTable.h"
#include "component/tables/IObjListEventHandlerTable.h"
#include "component/tables/IObjectComparatorTable.h"
#include "component/tables/IObjectPredicateTable.h"
#include "component/tables/IRecordControllerTable.h"
#include "component/tables/IRecordEventHandlerTable.h"
#include "component/tables/IVXEventListHandlerTable.h"

namespace vestrel::component {
namespace {

template <auto Pointer>
struct Named {};

// The position in the table of the entry for a member.
template <auto Pointer, class... Entries>
constexpr int PositionIn(const std::tuple<Entries...>& /*entries*/) {
  const bool fits[] = {std::is_same_v<Named<Entries::kPointer>, Named<Pointer>>...};
  int position = 0;
  while (!fits[position]) ++position;
  return position;
}

template <class I>
class Adapter : public I {
 public:
  explicit Adapter(const HostReference& reference)
      : link_(reference, *FindFaceClass(PublishedName<I>::value)) {}

  bool Exists() const { return link_.Exists(); }

  void* Query(TypeKey key) noexcept override {
    return key == KeyOf<HostReference>() ? &link_.reference() : I::Query(key);
  }

 protected:
  template <auto Pointer, class... A>
  auto Call(A&... arguments) {
    using Result = typename Signature<decltype(Pointer)>::Result;
    try {
      OutgoingCall call(link_, PositionIn<Pointer>(TableOf<I>::kTable.entries));
      (AddTo(call, arguments), ...);
      call.Run();
      return call.Result<Result>();
    } catch (const ComFailure& failure) {
      RaiseHostFailure(failure.code);  // the library's own traps know errors alone
    }
  }

 private:
  template <class T>
  static void AddTo(OutgoingCall& call, T& argument) {
    if constexpr (std::is_enum_v<T>) {
      call.Add(static_cast<std::int32_t>(argument));
    } else if constexpr (std::is_pointer_v<T>) {
      call.Add(static_cast<Object*>(argument));
    } else {
      call.Add(argument);
    }
  }

  HostLink link_;
};

using Text = std::u16string_view;
using Int = std::int32_t;
using Short = std::int16_t;
using Single = float;

class HostComparable final : public Adapter<IComparable> {
  using I = IComparable;
  using Adapter::Adapter;
  Int CompareTo(Object* other, Text field) override { return Call<&I::CompareTo>(other, field); }
  Int FieldCompare(Text name, const Variant& value) override { return Call<&I::FieldCompare>(name, value); }
};

class HostComparator final : public Adapter<IObjectComparator> {
  using I = IObjectComparator;
  using Adapter::Adapter;
  Int Compare(Object* a, Object* b) override { return Call<&I::Compare>(a, b); }
};

class HostPredicate final : public Adapter<IObjectPredicate> {
  using I = IObjectPredicate;
  using Adapter::Adapter;
  bool IsTrueFor(Object* obj) override { return Call<&I::IsTrueFor>(obj); }
};

class HostListEventHandler final : public Adapter<IObjListEventHandler> {
  using I = IObjListEventHandler;
  using Adapter::Adapter;
  void ItemAdded(clsObjectList* list, Object* item, Int at, Object* data) override {
    Call<&I::ItemAdded>(list, item, at, data);
  }
  void ItemRemoved(clsObjectList* list, Object* item, Int from, Object* data) override {
    Call<&I::ItemRemoved>(list, item, from, data);
  }
};

class HostButtonEventHandler final : public Adapter<IButtonEventHandler> {
  using I = IButtonEventHandler;
  using Adapter::Adapter;
  void PlayStateChanged(clsButton* button, PSEventSourceEnum source, Short mouse, Short shift, Single x,
                        Single y, bool suppressSave) override {
    Call<&I::PlayStateChanged>(button, source, mouse, shift, x, y, suppressSave);
  }
  void LockStateChanged(clsButton* button) override { Call<&I::LockStateChanged>(button); }
  void FaderModeChanged(clsButton* button) override { Call<&I::FaderModeChanged>(button); }
  void FaderValueChanged(clsButton* button, bool updateUI) override {
    Call<&I::FaderValueChanged>(button, updateUI);
  }
  void DeferPlaystateFor(clsPage* page, clsButton* button, PlayStateEnum state, Int value) override {
    Call<&I::DeferPlaystateFor>(page, button, state, value);
  }
};

class HostForm final : public Adapter<IFormSequenceShortcuts> {
  using I = IFormSequenceShortcuts;
  using Adapter::Adapter;
  void SetButtonGroupPageCaption(Int group, Text caption) override {
    Call<&I::SetButtonGroupPageCaption>(group, caption);
  }
  void RefreshPage(IFSSRefreshEnum type, Int group, clsButton* button) override {
    Call<&I::RefreshPage>(type, group, button);
  }
  void SetFlashing(bool state) override { Call<&I::SetFlashing>(state); }
  void ShowEditPopup(clsButton* button) override { Call<&I::ShowEditPopup>(button); }
  void DisableEditMode() override { Call<&I::DisableEditMode>(); }
  void CopyButtonFiles(ButtonTypeEnum type, Text fromPage, Text fromName, Text toPage, Text toName,
                       bool deleteSource) override {
    Call<&I::CopyButtonFiles>(type, fromPage, fromName, toPage, toName, deleteSource);
  }
  void DeleteButton(clsButton* button, bool noPrompt) override { Call<&I::DeleteButton>(button, noPrompt); }
  std::u16string RenameButton(clsButton* button, Int control) override {
    return Call<&I::RenameButton>(button, control);
  }
  void ButtonStateChanged(clsButton* button, Short mouse, Short shift, Single x, Single y) override {
    Call<&I::ButtonStateChanged>(button, mouse, shift, x, y);
  }
  void LockStateChanged(clsButton* button) override { Call<&I::LockStateChanged>(button); }
  void UpdateFaderUI(IFSSFaderTypeEnum type, Int index, Int value) override {
    Call<&I::UpdateFaderUI>(type, index, value);
  }
  void FaderModeChanged(clsButton* button) override { Call<&I::FaderModeChanged>(button); }
  void HighlightBump(Int index, bool state) override { Call<&I::HighlightBump>(index, state); }
  void ReleaseButton(clsButton* button) override { Call<&I::ReleaseButton>(button); }
  void GoFromSubmaster(clsButton* button, Short crossFade, Single time, bool manual) override {
    Call<&I::GoFromSubmaster>(button, crossFade, time, manual);
  }
  void GetUIFaderValues(TUIFaderValues& values) override { Call<&I::GetUIFaderValues>(values); }
  void UpdateFaderModelValue(IFSSFaderTypeEnum type, Int index, Int value, bool caught,
                             clsButton* button) override {
    Call<&I::UpdateFaderModelValue>(type, index, value, caught, button);
  }
  void HideSplashScreen() override { Call<&I::HideSplashScreen>(); }
  void CreateMarkFadeButton(clsButton* button, Text originalName, MarkFadeTypeEnum type) override {
    Call<&I::CreateMarkFadeButton>(button, originalName, type);
  }
  bool PromptButtonOverwrite(Text prompt) override { return Call<&I::PromptButtonOverwrite>(prompt); }
};

class HostLEDSetter final : public Adapter<ILEDSetter> {
  using I = ILEDSetter;
  using Adapter::Adapter;
  void setLED(std::uint8_t group, Short bits, bool state) override { Call<&I::setLED>(group, bits, state); }
  void StartLEDTimer() override { Call<&I::StartLEDTimer>(); }
  void EndLEDTimer() override { Call<&I::EndLEDTimer>(); }
};

class HostAssignmentCallback final : public Adapter<IAssignmentCallback> {
  using I = IAssignmentCallback;
  using Adapter::Adapter;
  void CompleteAssignment(bool forceOverwrite) override { Call<&I::CompleteAssignment>(forceOverwrite); }
};

class HostRecordController final : public Adapter<IRecordController> {
  using I = IRecordController;
  using Adapter::Adapter;
  void ButtonPlaystateChanged(clsButton* button, PSEventSourceEnum source, Short mouse, Short shift, Single x,
                              Single y) override {
    Call<&I::ButtonPlaystateChanged>(button, source, mouse, shift, x, y);
  }
};

class HostRecordEventHandler final : public Adapter<IRecordEventHandler> {
  using I = IRecordEventHandler;
  using Adapter::Adapter;
  void UpdateTimecodeDisplay(Int value) override { Call<&I::UpdateTimecodeDisplay>(value); }
  void SetTimerEnabled(bool value) override { Call<&I::SetTimerEnabled>(value); }
  void TransportStateChanged(TransportStateEnum state, bool recording) override {
    Call<&I::TransportStateChanged>(state, recording);
  }
  void NewEventRecorded(vxEvent* ev) override { Call<&I::NewEventRecorded>(ev); }
  void CurrentPlayingEvent(vxEvent* ev, Int index) override { Call<&I::CurrentPlayingEvent>(ev, index); }
  void RefreshList() override { Call<&I::RefreshList>(); }
};

class HostEventListHandler final : public Adapter<IVXEventListHandler> {
  using I = IVXEventListHandler;
  using Adapter::Adapter;
  void EventFired(vxEvent* ev, Int index) override { Call<&I::EventFired>(ev, index); }
};

template <class Host>
Ref<Object> Make(const HostReference& reference) {
  Ref<Host> host = MakeRef<Host>(reference);
  if (!host->Exists()) return {};
  return host;
}

struct Maker {
  TypeKey key;
  Ref<Object> (*make)(const HostReference& reference);
};

}  // namespace

Ref<Object> AdaptHost(TypeKey key, const HostReference& reference) {
  static const Maker kMakers[] = {
      {KeyOf<IComparable>(), Make<HostComparable>},
      {KeyOf<IObjectComparator>(), Make<HostComparator>},
      {KeyOf<IObjectPredicate>(), Make<HostPredicate>},
      {KeyOf<IObjListEventHandler>(), Make<HostListEventHandler>},
      {KeyOf<IButtonEventHandler>(), Make<HostButtonEventHandler>},
      {KeyOf<IFormSequenceShortcuts>(), Make<HostForm>},
      {KeyOf<ILEDSetter>(), Make<HostLEDSetter>},
      {KeyOf<IAssignmentCallback>(), Make<HostAssignmentCallback>},
      {KeyOf<IRecordController>(), Make<HostRecordController>},
      {KeyOf<IRecordEventHandler>(), Make<HostRecordEventHandler>},
      {KeyOf<IVXEventListHandler>(), Make<HostEventListHandler>},
  };
  for (const Maker& maker : kMakers) {
    if (maker.key == key) return maker.make(reference);
  }
  return {};
}

}  // namespace vestrel::component
