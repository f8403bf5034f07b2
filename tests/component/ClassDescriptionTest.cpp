#include <gtest/gtest.h>

#include "component/ClassDescription.h"
#include "component/ClassInfo.h"
#include "core/Convert.h"
#include "core/IObjectPredicate.h"
#include "model/clsButton.h"

namespace vestrel::component {
namespace {

const ClassDescription& Of(std::string_view name) {
  return *FindDescription(name);
}

const Operation& SlotFor(const ClassDescription& description, std::u16string_view name, Kind kind) {
  return description.slots()[static_cast<std::size_t>(description.FindSlot(description.FindId(name), kind))]
      .operation;
}

TEST(ClassDescriptionTest, EveryNameOfEveryClassIsFoundInAnyLetterCase) {
  for (const ClassDescription& description : AllDescriptions()) {
    for (const Slot& slot : description.slots()) {
      const std::u16string name = FromUtf8(slot.name);
      std::u16string upper = name;
      for (char16_t& unit : upper) {
        if (unit >= u'a' && unit <= u'z') unit = static_cast<char16_t>(unit - u'a' + u'A');
      }
      EXPECT_EQ(description.FindId(name), slot.id) << slot.name;
      EXPECT_EQ(description.FindId(upper), slot.id) << slot.name;
      EXPECT_EQ(description.FindId(LowerCase(name)), slot.id) << slot.name;
      EXPECT_EQ(description.FindId(name + u"x"), 0) << slot.name;
    }
    EXPECT_EQ(description.FindId(u""), 0);
  }
}

TEST(ClassDescriptionTest, AccessorsOfOnePropertyShareAnId) {
  const ClassDescription& button = Of("clsButton");
  EXPECT_EQ(button.slots()[0].id, 1);
  EXPECT_EQ(button.slots()[1].id, 1);
  EXPECT_EQ(button.slots()[2].id, 2);
}

TEST(ClassDescriptionTest, AMethodCallReadsAPropertyAndAPutSetsAReference) {
  const ClassDescription& event = Of("vxEvent");
  EXPECT_EQ(SlotFor(event, u"time", Kind::Method).kind, Kind::Get);
  EXPECT_EQ(SlotFor(event, u"time", Kind::Put).kind, Kind::Put);
  EXPECT_EQ(SlotFor(event, u"button", Kind::Put).kind, Kind::PutRef);
  EXPECT_EQ(SlotFor(event, u"button", Kind::PutRef).kind, Kind::PutRef);
  EXPECT_EQ(SlotFor(event, u"WriteToFile", Kind::Get).kind, Kind::Method);
}

TEST(ClassDescriptionTest, AReadOnlyPropertyCannotBePut) {
  const ClassDescription& list = Of("clsIterator");
  EXPECT_EQ(list.FindSlot(list.FindId(u"Size"), Kind::Put), -1);
  EXPECT_EQ(list.FindSlot(0, Kind::Method), -1);
  EXPECT_EQ(list.FindSlot(-1, Kind::Method), -1);
  EXPECT_EQ(list.FindSlot(1000, Kind::Method), -1);
}

TEST(ClassDescriptionTest, ParametersAreFoundByName) {
  const Operation& sort = SlotFor(Of("clsObjectList"), u"SortInPlace", Kind::Method);
  EXPECT_EQ(ClassDescription::FindParameter(sort, u"comparator"), 0);
  EXPECT_EQ(ClassDescription::FindParameter(sort, u"REVERSE"), 1);
  EXPECT_EQ(ClassDescription::FindParameter(sort, u"Field"), 2);
  EXPECT_EQ(ClassDescription::FindParameter(sort, u"fields"), -1);
}

TEST(ClassDescriptionTest, OperationsOfInterfacesCarryTheInterfacesName) {
  const ClassDescription& controller = Of("clsButtonGroupController");
  EXPECT_NE(controller.FindId(u"IButtonEventHandler_PlayStateChanged"), 0);
  EXPECT_EQ(controller.FindId(u"PlayStateChanged"), 0);
  ASSERT_EQ(controller.interfaces().size(), 2U);
  EXPECT_EQ(controller.interfaces()[0], "IButtonEventHandler");
  EXPECT_EQ(controller.interfaces()[1], "IObjListEventHandler");
}

TEST(ClassDescriptionTest, TypesComeFromTheSignature) {
  const Operation& clicked = SlotFor(Of("clsButtonGroupController"), u"controlClicked", Kind::Method);
  ASSERT_EQ(clicked.parameterCount, 8);
  EXPECT_EQ(clicked.parameters[0].type.type, ValueType::Long);
  EXPECT_EQ(clicked.parameters[1].type.type, ValueType::Short);
  EXPECT_EQ(clicked.parameters[3].type.type, ValueType::Single);
  EXPECT_EQ(clicked.parameters[5].type.name, "TriggerModeEnum");
  EXPECT_EQ(clicked.parameters[7].type.name, "clsButton");
  EXPECT_EQ(clicked.parameters[7].direction, Direction::Out);
  EXPECT_EQ(clicked.result.type, ValueType::None);
}

TEST(ClassDescriptionTest, ClassesWhoseNameStandsForAnInterfaceAreInterfaces) {
  EXPECT_TRUE(Of("ILEDSetter").isInterface());
  EXPECT_FALSE(Of("clsIniFile").isInterface());
}

TEST(ClassInfoTest, EveryObjectIsRecognisedAsItsClass) {
  for (const ClassInfo* info : AllClasses()) {
    const Ref<Object> object = info->create();
    ASSERT_TRUE(object);
    EXPECT_EQ(ClassOf(*object), info) << info->description->name();
    EXPECT_NE(object->Query(info->key), nullptr) << info->description->name();
    EXPECT_EQ(info->invoke.size(), info->description->slots().size());
  }
}

TEST(ClassInfoTest, AProgramsOwnClassIsRecognisedByTheInterfaceItImplements) {
  class Everything : public IObjectPredicate {
   public:
    bool IsTrueFor(Object* /*obj*/) override { return true; }
  };
  const Ref<Everything> own = MakeRef<Everything>();
  ASSERT_NE(ClassOf(*own), nullptr);
  EXPECT_EQ(ClassOf(*own)->description->name(), "IObjectPredicate");
  class Unknown : public Object {};
  EXPECT_EQ(ClassOf(*MakeRef<Unknown>()), nullptr);
}

TEST(ClassInfoTest, ClassesAreFoundByNameInAnyLetterCase) {
  ASSERT_NE(FindClass(u"CLSBUTTON"), nullptr);
  EXPECT_EQ(FindClass(u"CLSBUTTON")->key, KeyOf<clsButton>());
  EXPECT_EQ(FindClass(u"clsButtons"), nullptr);
}

}  // namespace
}  // namespace vestrel::component
