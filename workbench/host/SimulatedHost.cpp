#include "workbench/host/SimulatedHost.h"

#include "controller/ControlIndex.h"
#include "controller/GroupButtons.h"
#include "core/Cast.h"
#include "util/VestrelStatic.h"

namespace vestrel::workbench {

SimulatedHost::SimulatedHost(const std::filesystem::path& dataFolder, const ClockStart& start)
    : appPath_(dataFolder.u16string()),
      clock_(start),
      system_(calls_, answers_, appPath_),
      override_({.clock = &clock_, .hostServices = &system_}),
      files_(dataFolder),
      folders_(dataFolder),
      form_(MakeRef<HostForm>(*this)),
      surface_(MakeRef<ControlSurface>(*this)),
      transport_(MakeRef<TransportBar>(*this)),
      record_(MakeRef<clsRecordController>()),
      controller_(MakeRef<clsButtonGroupController>()) {
  MakeRef<VestrelStatic>()->Init((appPath_ + u"\\").append(kLogFile));
  record_->Init(transport_.get());
  controller_->Init(form_.get(), appPath_, surface_.get(), record_.get());
}

SimulatedHost::~SimulatedHost() {
  calls_.SetListener(nullptr);
}

void SimulatedHost::Advance(std::uint64_t milliseconds) {
  const std::uint64_t until = clock_.Now() + milliseconds;
  while (HostTimer* timer = NextTimer(until)) {
    clock_.GoOnTo(timer->due());
    timer->Ticked();
    if (timer == &blinkTimer_) {
      controller_->mLEDManager->TimerTick();
    } else {
      record_->TimerTick();
    }
  }
  clock_.GoOnTo(until);
}

HostTimer* SimulatedHost::NextTimer(std::uint64_t until) noexcept {
  const bool blink = blinkTimer_.IsDue(until);
  const bool transport = transportTimer_.IsDue(until);
  if (blink && (!transport || blinkTimer_.due() <= transportTimer_.due())) return &blinkTimer_;
  return transport ? &transportTimer_ : nullptr;
}

void SimulatedHost::MoveGroupFader(std::int32_t index, std::int32_t value) {
  surface_->positions().GroupFaders[index] = value;
  controller_->groupFaderChanged(index, value);
}

void SimulatedHost::MoveBumpFader(std::int32_t index, std::int32_t value, bool updateUI) {
  surface_->positions().BumpFaders[index] = value;
  controller_->BumpFaderChanged(index, value, updateUI);
}

void SimulatedHost::SetPageSize(std::int32_t pageSize) {
  pageSize_ = pageSize;
  controller_->setButtonGroupPageSize(pageSize);
}

void SimulatedHost::CreateShow(std::u16string_view showName) {
  files_.SetShow(showName);
  controller_->CreateNewShow(showName);
}

void SimulatedHost::LoadShow(std::u16string_view showName) {
  files_.SetShow(showName);
  controller_->LoadShow(showName);
}

void SimulatedHost::LayOut() {
  if (pageSize_ < 1) return;
  controller_->resetVisibility();
  for (std::int32_t group = kFirstGroup; group <= kLastGroup; ++group) LayOutGroup(group);
}

void SimulatedHost::LayOutGroup(std::int32_t groupIndex) {
  const Ref<clsObjectList> shown = controller_->getVisibleGroupButtons(groupIndex);
  for (std::int32_t i = 0; i < shown->Size(); ++i) {
    const Ref<Object> item = shown->GetItem(i);
    auto& button = Cast<clsButton>(item.get());
    button.isVisible = true;
    if (groupIndex <= 8) {
      button.controlIndex =
          modControlIndex::controlIndexFromButtonIndex(pageSize_, groupIndex, button.buttonIndex);
    }
  }
}

void SimulatedHost::ReleaseOthers(clsButton& button) {
  calls_.Acted("releaseButtonsOnPage", button.groupIndex, ButtonType_None, &button);
  Ref<clsButton> exclude(&button);
  controller_->releaseButtonsOnPage(button.groupIndex, ButtonType_None, &exclude);
}

void SimulatedHost::TurnOn(clsButton& button) {
  calls_.Acted("setPlayState", &button, PlayState_On, PSEventSource_User);
  button.setPlayState(PlayState_On, PSEventSource_User, 1, 0, 0, 0);
}

void SimulatedHost::LeaveEditMode() {
  calls_.Acted("setModeEditing", false);
  controller_->setModeEditing(false);
}

void SimulatedHost::SetGroupLevel(std::int32_t groupIndex, std::int32_t level) {
  const Ref<clsObjectList> buttons = controller_->getButtons(groupIndex);
  if (!buttons) return;
  for (std::int32_t i = 0; i < buttons->Size(); ++i) {
    const Ref<Object> item = buttons->GetItem(i);
    stage_.SetLevel(Cast<clsButton>(item.get()), level);
  }
}

void SimulatedHost::RunTransportTimer(bool enabled) {
  if (enabled) {
    transportTimer_.Start(clock_.Now());
  } else {
    transportTimer_.Stop();
  }
}

}  // namespace vestrel::workbench
