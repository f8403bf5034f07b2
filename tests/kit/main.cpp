// A small host: a show, a page, a button, a click, once with the classes themselves and once by name. The
// only argument is an empty folder. Prints the library's version.
#include <filesystem>
#include <iostream>

#include "component/ByName.h"
#include "controller/clsButtonGroupController.h"
#include "core/Convert.h"
#include "core/Error.h"
#include "core/Ref.h"
#include "model/clsButton.h"
#include "recording/clsRecordController.h"
#include "util/VestrelStatic.h"

namespace {

using namespace vestrel;

class Form : public IFormSequenceShortcuts {
 public:
  VESTREL_OBJECT(Form)
  void ButtonStateChanged(clsButton* button, std::int16_t, std::int16_t, float, float) override {
    if (button->playState() == PlayState_On) ++started;
  }
  int started = 0;
};

bool Run(const std::filesystem::path& folder) {
  const std::u16string path = folder.u16string();
  std::filesystem::create_directories(folder / "Sequences");
  const auto helper = MakeRef<VestrelStatic>();
  helper->Init(path + u"/log.txt");
  const auto form = MakeRef<Form>();
  const auto lamps = MakeRef<ILEDSetter>();
  const auto recorder = MakeRef<clsRecordController>();
  const auto controller = MakeRef<clsButtonGroupController>();
  controller->Init(form.get(), path, lamps.get(), recorder.get());
  controller->setButtonGroupPageSize(4);
  controller->CreateNewShow(u"Gala");
  controller->AddPage(u"One");
  controller->assignButton(1, 2, u"Intro", ButtonType_Sequence);
  controller->controlClicked(34, 1, 0, 0, 0);
  component::CallByName(
      controller.get(), u"controlClicked",
      {component::In(34), component::In(1), component::In(0), component::In(0.5), component::In(0.5)});
  const Variant button =
      component::CallByName(controller.get(), u"buttonAtControlIndex", {component::In(34)});
  const bool off = component::GetByName(button.AsObject().get(), u"playState").AsLong() == PlayState_Off;
  controller->formShutdown();
  std::cout << ToUtf8(helper->Version()) << "\n";
  return form->started == 1 && off && std::filesystem::exists(folder / "log.txt");
}

}  // namespace

int main(int count, char** arguments) {
  try {
    return count == 2 && Run(arguments[1]) ? 0 : 1;
  } catch (const Error& error) {
    std::cerr << error.what() << "\n";
    return 2;
  }
}
