// Settings files: any bytes, any run of reads, writes, deletions and batches. Every read and the bytes after
// every change are those of a model of the rules.
#include <memory>

#include "fuzz/Check.h"
#include "fuzz/IniModel.h"
#include "fuzz/Input.h"
#include "fuzz/MemoryWorld.h"
#include "storage/modIniFile.h"

namespace vestrel::fuzz {
namespace {

constexpr std::u16string_view kFile = u"C:\\data\\any.ini";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";

std::string Narrow(std::u16string_view text) {
  bool lossy = false;
  return platform::encoding().Narrow(text, lossy);
}

std::u16string Cut(std::string bytes) {
  bytes.resize(platform::encoding().CutLength(bytes, modIniFile::kLongestRead));
  return Wide(bytes);
}

// One file as the model has it, in the form that its first bytes say.
class ModelFile {
 public:
  explicit ModelFile(std::string_view bytes) : isWide_(bytes.starts_with(kUtf16Mark)), original_(bytes) {
    if (isWide_) {
      wide_ = IniModel<char16_t>(Units(bytes.substr(2)));
    } else {
      narrow_ = IniModel<char>(std::string(bytes));
    }
  }

  std::u16string Read(const std::string& section, const std::string& key, std::string otherwise) const {
    std::optional<std::string> value;
    if (isWide_) {
      if (const auto found = wide_.Read(Wide(section), Wide(key))) value = Narrow(*found);
    } else {
      value = narrow_.Read(section, key);
    }
    otherwise.erase(otherwise.find_last_not_of(' ') + 1);
    return Cut(value.value_or(otherwise));
  }
  void Write(const std::string& section, const std::string& key, const std::string& value) {
    narrow_.Write(section, key, value);
    if (!isWide_) return;
    // The mark counts as a line without an end.
    if (wide_.text().empty()) wide_ = IniModel<char16_t>(u"\r\n");
    wide_.Write(Wide(section), Wide(key), Wide(value));
  }
  void Delete(const std::string& section, const std::string& key) {
    narrow_.Delete(section, key);
    if (isWide_) wide_.Delete(Wide(section), Wide(key));
  }
  // The odd byte at the end of a text in UTF-16 stays until something changes.
  std::string Bytes() {
    if (!isWide_) return narrow_.text();
    const std::u16string text = wide_.text();
    if (text == Units(std::string_view(original_).substr(2))) return original_;
    std::string bytes(kUtf16Mark);
    for (const char16_t unit : text) {
      bytes += static_cast<char>(unit & 0xFF);
      bytes += static_cast<char>(unit >> 8);
    }
    return original_ = bytes;
  }

 private:
  static std::u16string Units(std::string_view bytes) {
    std::u16string units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
      units += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                     (static_cast<unsigned char>(bytes[i + 1]) << 8));
    }
    return units;
  }

  bool isWide_;
  std::string original_;
  IniModel<char> narrow_{""};
  IniModel<char16_t> wide_{u""};
};

class Run {
 public:
  explicit Run(std::string_view bytes) : model_(bytes == "-" ? "" : bytes) {
    if (bytes != "-") world_.files.Put(kFile, bytes);
  }

  void Do(std::string_view operation) {
    const std::string_view kind = TakePart(operation, kFieldEnd);
    const std::u16string section = Wide(TakePart(operation, kFieldEnd));
    const std::u16string key = Wide(TakePart(operation, kFieldEnd));
    const std::u16string value = Wide(operation);
    if (kind == "r") {
      Read(section, key, value);
    } else if (kind == "w") {
      Write(section, key, value);
    } else if (kind == "d") {
      modIniFile::WriteIniString(kFile, section, key, nullptr);
      model_.Delete(Narrow(section), Narrow(key));
    } else if (kind == "b") {
      if (!batch_) batch_ = std::make_unique<IniBatch>(kFile, IniBatch::Sync::No);
    } else if (kind == "c") {
      End();
    }
    if (!batch_) ExpectBytes();
  }
  void End() {
    if (batch_) Expect(batch_->Commit(), "a commit answers false");
    batch_ = nullptr;
    ExpectBytes();
  }

 private:
  void Read(const std::u16string& section, const std::u16string& key, const std::u16string& otherwise) {
    ExpectSame(modIniFile::ReadIniString(kFile, section, key, otherwise),
               model_.Read(Narrow(section), Narrow(key), Narrow(otherwise)), "a read");
  }
  void Write(const std::u16string& section, const std::u16string& key, std::u16string value) {
    const std::string bytes = Narrow(value);
    modIniFile::WriteIniString(kFile, section, key, &value);
    Expect(value.find_first_of(u"\r\n") == std::u16string::npos, "a line break is left in the variable");
    model_.Write(Narrow(section), Narrow(key), bytes);
    Read(section, key, u"");
  }
  void ExpectBytes() {
    const std::string wanted = model_.Bytes();
    if (wanted.empty() && !world_.files.Has(kFile)) return;
    ExpectSame(world_.files.Get(kFile), wanted, "the file");
  }

  MemoryWorld world_;
  ModelFile model_;
  std::unique_ptr<IniBatch> batch_;
};

}  // namespace
}  // namespace vestrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vestrel::fuzz;
  const std::vector<std::string_view> pieces = Split(AsText(data, size), kPieceEnd);
  Run run(pieces.front());
  for (std::size_t i = 1; i < pieces.size(); ++i) run.Do(pieces[i]);
  run.End();
  return 0;
}
