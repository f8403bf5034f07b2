#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>

#include "component/ClassDescription.h"
#include "component/writers/IdlWriter.h"
#include "component/writers/ManifestWriter.h"
#include "component/writers/ReferenceWriter.h"
#include "component/writers/TypeLibraryFinisher.h"

namespace vestrel::component {
namespace {

std::string Idl(IdlDialect dialect) {
  std::ostringstream out;
  WriteIdl(out, dialect);
  return out.str();
}

bool Has(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

TEST(IdlWriterTest, ArgumentsTravelByReferenceWithTheirDefaults) {
  const std::string idl = Idl(IdlDialect::Published);
  EXPECT_TRUE(Has(idl, "HRESULT GetItem([in, out] long* index,\n        [out, retval] IDispatch** result);"));
  EXPECT_TRUE(Has(idl, "[in, out, optional, defaultvalue(\"all\")] BSTR* field"));
  EXPECT_TRUE(Has(idl, "[in, out, optional, defaultvalue(TriggerMode_Toggle)] TriggerModeEnum* triggerMode"));
  EXPECT_TRUE(Has(idl, "[in, out, optional, defaultvalue(-1)] VARIANT_BOOL* persist"));
  EXPECT_TRUE(Has(idl, "[in, out, optional] _clsButton** buttonVar"));
}

TEST(IdlWriterTest, PropertyValuesAndMarkedArgumentsTravelByValue) {
  const std::string idl = Idl(IdlDialect::Published);
  EXPECT_TRUE(Has(idl, "HRESULT Locked([in] VARIANT_BOOL value);"));
  EXPECT_TRUE(Has(idl, "HRESULT highlightedButton([in] _clsButton* value);"));
  EXPECT_TRUE(Has(idl, "HRESULT msToTimecode([in] long x,\n        [out, retval] BSTR* result);"));
  EXPECT_TRUE(Has(idl, "HRESULT GroupFaders([in, out] long* index,\n        [in] long value);"));
}

TEST(IdlWriterTest, WordsOfTheLanguageAreNoArgumentNames) {
  EXPECT_TRUE(Has(Idl(IdlDialect::Published), "[in, out] long* default_"));
  EXPECT_TRUE(
      Has(Idl(IdlDialect::Published), "// In the type library the argument default_ is named default,"));
}

TEST(IdlWriterTest, TheOtherDialectMarksTextDefaults) {
  const std::string idl = Idl(IdlDialect::Widl);
  EXPECT_TRUE(
      Has(idl, "[in, out, optional, defaultvalue(" + std::to_string(kTextDefaultMarker) + ")] BSTR* field"));
  EXPECT_TRUE(Has(idl, "custom(7C1F4B2A-52D7-4B6E-9C0B-000000000001, \"all\")"));
  EXPECT_FALSE(Has(idl, "defaultvalue(\""));
}

TEST(IdlWriterTest, EveryTextDefaultIsKnown) {
  const auto texts = DefaultTexts();
  EXPECT_EQ(texts, (std::vector<std::u16string_view>{u"all", u"\\", u"", u"Page 1"}));
}

TEST(TypeLibraryFinisherTest, RefusesWhatIsNoTypeLibrary) {
  std::string nothing;
  EXPECT_THROW(FinishTypeLibrary(nothing), std::runtime_error);
  std::string other(4096, 'x');
  EXPECT_THROW(FinishTypeLibrary(other), std::runtime_error);
  std::string torn = "MSFT";
  EXPECT_THROW(FinishTypeLibrary(torn), std::runtime_error);
}

TEST(ManifestWriterTest, EveryClassIsThere) {
  std::ostringstream out;
  WriteManifest(out, "x86", "1.2.3");
  EXPECT_TRUE(Has(out.str(), "name=\"Vestrel\" version=\"1.2.3.0\" processorArchitecture=\"x86\""));
  for (const ClassDescription& description : AllDescriptions()) {
    EXPECT_TRUE(Has(out.str(), "progid=\"Vestrel." + std::string(description.name()) + "\""));
    EXPECT_TRUE(Has(out.str(), "<progid>Vestrel." + std::string(description.name()) + ".1</progid>"));
    EXPECT_TRUE(Has(out.str(), "name=\"_" + std::string(description.name()) + "\""));
  }
}

// The pages in the tree are those that the tables give: make them anew with tools/make-reference.
TEST(ReferenceWriterTest, ThePagesInTheTreeAreUpToDate) {
  std::set<std::string> names;
  WriteReference([&names](std::string_view name, const std::string& text) {
    names.emplace(name);
    std::ifstream file(std::string(VESTREL_REFERENCE_FOLDER) + "/" + std::string(name), std::ios::binary);
    std::stringstream page;
    page << file.rdbuf();
    EXPECT_EQ(page.str(), text) << name;
  });
  for (const auto& entry : std::filesystem::directory_iterator(VESTREL_REFERENCE_FOLDER)) {
    EXPECT_EQ(names.count(entry.path().filename().string()), 1U) << entry.path() << " is no page";
  }
}

}  // namespace
}  // namespace vestrel::component
