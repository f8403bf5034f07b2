// Calls chosen at random, on objects and with values that earlier calls answered: whatever hosts do, the
// library answers or raises. The seeds are fixed; a failure repeats.
#include <gtest/gtest.h>

#include <random>
#include <string_view>

#include "tests/component/CallerPool.h"
#include "tests/support/Errors.h"
#include "tests/support/LogFixture.h"
#include "tests/support/Scale.h"

namespace vestrel::component {
namespace {

constexpr int kCallsARound = 250;
constexpr std::u16string_view kFolder = u"C:\\data";

// Some ten thousand calls, or a million.
int Rounds() {
  return test::RunsLong() ? 1000000 / kCallsARound : 100;
}

class Caller {
 public:
  explicit Caller(unsigned seed) : random_(seed), values_(test::OddValues()), objects_(test::OneOfEach()) {}

  void Call() {
    const Ref<Object> object = Pick(objects_);
    const ClassInfo* info = ClassOf(*object);
    if (info == nullptr) return;
    const Slot& slot = info->description->slots()[Below(info->description->slots().size())];
    std::vector<Actual> arguments;
    for (std::size_t i = 0; i < slot.operation.parameterCount; ++i) {
      arguments.push_back(For(slot.operation.parameters[i]));
    }
    test::RaisedNumber([&] {
      Keep(InvokeByName(object.get(), std::u16string(slot.name.begin(), slot.name.end()), slot.operation.kind,
                        arguments));
      if (slot.name == "Init" && arguments.size() > 1) ++initialised_;
    });
  }
  // How many calls of an operation that sets objects up have succeeded.
  int initialised() const { return initialised_; }

 private:
  std::size_t Below(std::size_t limit) { return random_() % limit; }
  template <class T>
  const T& Pick(const std::vector<T>& from) {
    return from[Below(from.size())];
  }

  // Mostly an argument that fits, so that calls get somewhere.
  Actual For(const Parameter& parameter) {
    if (Below(12) == 0) return Omitted();
    if (Below(12) == 0) return In(Pick(values_));
    if (parameter.direction != Direction::In && Below(2) == 0) return ByRef(variable_);
    switch (parameter.type.type) {
      case ValueType::Object:
        return In(ObjectOf(parameter.type.name));
      case ValueType::Text:
        return In(Below(4) == 0 ? std::u16string(kFolder) : std::u16string(kFolder) + u"\\" + ShortName());
      case ValueType::Boolean:
        return In(Below(2) == 0);
      case ValueType::Array:
        return In(SomeArray());
      case ValueType::FaderValues:
        return In(ObjectOf("UIFaderValues"));
      default:
        return In(static_cast<std::int32_t>(Below(14)) - 2);
    }
  }
  std::u16string ShortName() { return std::u16string(1 + Below(3), static_cast<char16_t>(u'a' + Below(3))); }
  Variant SomeArray() {
    auto array = MakeRef<ValueArray>();
    for (std::size_t size = Below(5); size > 0; --size) array->items.push_back(Pick(values_));
    return array;
  }
  // One that is of the class or implements the interface.
  Variant ObjectOf(std::string_view className) {
    const ClassInfo* wanted = FindClass(std::u16string(className.begin(), className.end()));
    for (int attempt = 0; attempt < 60; ++attempt) {
      const Ref<Object>& candidate = Pick(objects_);
      if (wanted == nullptr || candidate->Query(wanted->key) != nullptr) return candidate;
    }
    return Ref<Object>();
  }
  // Objects come and go, so that parts outlive what owned them.
  void Keep(const Variant& result) {
    if (Below(16) == 0) objects_[Below(objects_.size())] = NewObject();
    if (result.kind() != Variant::Kind::Object || !result.AsObject() || objects_.size() > 200) return;
    objects_.push_back(result.AsObject());
  }
  Ref<Object> NewObject() { return AllClasses()[Below(AllClasses().size())]->create(); }

  std::mt19937 random_;
  std::vector<Variant> values_;
  std::vector<Ref<Object>> objects_;
  Variant variable_;
  int initialised_ = 0;
};

class RandomCallsTest : public test::LogFixture {
 protected:
  test::CirclesAllowed circles;
};

TEST_F(RandomCallsTest, AnyCallsInAnyOrderAnswerOrRaise) {
  int initialised = 0;
  for (int round = 0; round < Rounds(); ++round) {
    test::MemoryFiles roundFiles;
    roundFiles.PutFolder(kFolder);
    const platform::Override override({nullptr, &roundFiles, nullptr, nullptr});
    modLog::Init(kLogFile);
    modLog::SetLogLevel(LogLevel_1_SEVERE);
    Caller caller(static_cast<unsigned>(round));
    for (int call = 0; call < kCallsARound; ++call) caller.Call();
    initialised += caller.initialised();
    test::CloseTextFiles();
  }
  modLog::Init(kLogFile);
  // Otherwise the calls would end at objects that are not set up.
  EXPECT_GT(initialised, Rounds());
}

}  // namespace
}  // namespace vestrel::component
