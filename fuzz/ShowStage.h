// A show in memory with everything that a host gives the controller: what a run operates on.
#pragma once

#include <string>

#include "controller/clsButtonGroupController.h"
#include "recording/clsRecordController.h"
#include "tests/support/FakeServices.h"
#include "tests/support/RecordingForm.h"

namespace vestrel::fuzz {

inline constexpr std::u16string_view kApp = u"C:\\data";
inline constexpr std::u16string_view kShow = u"Show";

struct ShowStage {
  ShowStage() {
    record->Init(transport.get());
    controller->Init(form.get(), kApp, lamps.get(), record.get());
    controller->setButtonGroupPageSize(4);
  }

  test::Transcript transcript;
  Ref<test::RecordingForm> form = MakeRef<test::RecordingForm>(transcript);
  Ref<test::RecordingLamps> lamps = MakeRef<test::RecordingLamps>(transcript);
  Ref<test::RecordingTransport> transport = MakeRef<test::RecordingTransport>(transcript);
  Ref<test::RecordingAssignment> assignment = MakeRef<test::RecordingAssignment>(transcript);
  Ref<clsRecordController> record = MakeRef<clsRecordController>();
  Ref<clsButtonGroupController> controller = MakeRef<clsButtonGroupController>();
};

}  // namespace vestrel::fuzz
