// A whole host and what it works with: form, lamps, transport bar and assignment callback on one transcript,
// a recorder and a controller.
#pragma once

#include <string_view>

#include "controller/clsButtonGroupController.h"
#include "recording/clsRecordController.h"
#include "tests/support/RecordingForm.h"

namespace vestrel::test {

struct SimulatedHost {
  // Makes it one host; `app` is the application's folder.
  void Join(std::u16string_view app) const {
    record->Init(transport.get());
    controller->Init(form.get(), app, lamps.get(), record.get());
    controller->setButtonGroupPageSize(4);
  }

  Transcript transcript;
  Ref<RecordingForm> form = MakeRef<RecordingForm>(transcript);
  Ref<RecordingLamps> lamps = MakeRef<RecordingLamps>(transcript);
  Ref<RecordingTransport> transport = MakeRef<RecordingTransport>(transcript);
  Ref<RecordingAssignment> assignment = MakeRef<RecordingAssignment>(transcript);
  Ref<clsRecordController> record = MakeRef<clsRecordController>();
  Ref<clsButtonGroupController> controller = MakeRef<clsButtonGroupController>();
};

}  // namespace vestrel::test
