// The callback interfaces are classes of their own whose operations do nothing, so that a host overrides only
// what it needs.
#include <gtest/gtest.h>

#include "controller/interfaces/IAssignmentCallback.h"
#include "controller/interfaces/IFormSequenceShortcuts.h"
#include "controller/interfaces/ILEDSetter.h"
#include "controller/interfaces/IPageController.h"
#include "controller/interfaces/IRecordController.h"
#include "controller/interfaces/IRecordEventHandler.h"
#include "controller/interfaces/IVXEventListHandler.h"
#include "controller/interfaces/TUIFaderValues.h"
#include "core/Cast.h"

namespace vestrel {
namespace {

template <class Interface>
void ExpectCreatable() {
  const Ref<Interface> plain = MakeRef<Interface>();
  EXPECT_EQ(TryCast<Interface>(plain.get()), plain.get());
}

TEST(InterfacesTest, EachCanBeMadeAndNamedAsAType) {
  ExpectCreatable<IAssignmentCallback>();
  ExpectCreatable<IButtonEventHandler>();
  ExpectCreatable<IFormSequenceShortcuts>();
  ExpectCreatable<ILEDSetter>();
  ExpectCreatable<IObjListEventHandler>();
  ExpectCreatable<IPageController>();
  ExpectCreatable<IRecordController>();
  ExpectCreatable<IRecordEventHandler>();
  ExpectCreatable<IVXEventListHandler>();
}

TEST(InterfacesTest, APlainFormAnswersFalseAndNothing) {
  const auto form = MakeRef<IFormSequenceShortcuts>();
  EXPECT_FALSE(form->PromptButtonOverwrite(u"Overwrite?"));
  EXPECT_EQ(form->RenameButton(nullptr, 33), u"");
  TUIFaderValues values;
  values.GroupFaders[1] = 5;
  form->GetUIFaderValues(values);
  EXPECT_EQ(values.GroupFaders[1], 5);
}

TEST(InterfacesTest, APageControllerIsAButtonAndAListHandler) {
  const auto controller = MakeRef<IPageController>();
  Object* const object = controller.get();
  EXPECT_EQ(TryCast<IButtonEventHandler>(object), controller.get());
  EXPECT_EQ(TryCast<IObjListEventHandler>(object), controller.get());
  EXPECT_EQ(TryCast<ILEDSetter>(object), nullptr);
}

TEST(InterfacesTest, FaderValuesAreIndexedOneToEight) {
  TUIFaderValues values;
  for (std::int32_t i = 1; i <= 8; ++i) {
    EXPECT_EQ(values.GroupFaders[i], 0);
    values.GroupFaders[i] = i;
    values.BumpFaders[i] = i * 10;
  }
  EXPECT_EQ(values.GroupFaders[8], 8);
  EXPECT_EQ(values.BumpFaders[1], 10);
  for (const std::int32_t index : {-1, 0, 9}) {
    try {
      values.BumpFaders[index] = 1;
      ADD_FAILURE() << index;
    } catch (const Error& error) {
      EXPECT_EQ(error.number(), Error_SubscriptOutOfRange);
    }
  }
}

}  // namespace
}  // namespace vestrel
