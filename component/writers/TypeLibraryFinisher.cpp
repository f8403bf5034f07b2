// A type library file begins with a header, then the offsets of its type descriptions, then a directory of
// segments. Of interest are the description segment at the front, where each argument with a default has one
// 32-bit word - the value itself, with the type in bits 26 to 30 and bit 31 set, or an offset into the custom
// data segment - and the custom data segment, where values stand as a 16-bit type and their bytes. A name is
// three words - its type, the offset of the next name with the same hash bits, and its length and hash - and
// its letters, filled up to whole words; 128 words in a segment of their own say where the names of each hash
// begin. An array's description is four words: the type of its elements, the number of its dimensions in a
// half word, and for each dimension (here one) its size and its lower bound.
#include "component/writers/TypeLibraryFinisher.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string_view>

#include "component/writers/IdlWriter.h"
#include "core/Convert.h"

namespace vestrel::component {
namespace {

constexpr std::size_t kTypeCountOffset = 0x20;
constexpr std::size_t kFlagsOffset = 0x14;
constexpr std::uint32_t kHasHelpLibrary = 0x100;
constexpr std::size_t kHeaderSize = 0x54;
constexpr std::size_t kNameHashSegment = 6;
constexpr std::size_t kNameSegment = 7;
constexpr std::size_t kArraySegment = 10;
constexpr std::size_t kCustomDataSegment = 11;
constexpr std::size_t kNameCharactersOffset = 0x34;
constexpr std::size_t kNameHead = 12;
constexpr std::uint32_t kNoName = 0xFFFFFFFFU;
constexpr char kFill = 'W';
constexpr std::size_t kDirectoryEntrySize = 16;
constexpr std::size_t kSegments = 15;
constexpr std::uint32_t kTextType = 8;
constexpr std::uint16_t kLongType = 3;
constexpr std::uint16_t kDynamicType = 12;
constexpr std::size_t kArrayDescriptionSize = 16;

std::uint32_t WordAt(const std::string& file, std::size_t offset) {
  if (offset + 4 > file.size()) throw std::runtime_error("type library: cut short");
  std::uint32_t word = 0;
  std::memcpy(&word, file.data() + offset, sizeof word);
  return word;
}

void SetWord(std::string& file, std::size_t offset, std::uint32_t word) {
  std::memcpy(file.data() + offset, &word, sizeof word);
}

struct Segment {
  std::size_t offset;
  std::size_t length;
};

// The system's hash of a name, for the letters that names of the language are made of.
std::uint32_t HashOfName(std::string_view name) {
  std::uint32_t hash = 0x0DEADBEE;
  for (const char c : name)
    hash = hash * 37U + static_cast<unsigned char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
  return hash % 65599U & 0xFFFFU;
}

std::size_t WholeWords(std::size_t length) {
  return (length + 3) / 4 * 4;
}

class Finisher {
 public:
  explicit Finisher(std::string& file) : file_(file) {
    if (file.compare(0, 4, "MSFT") != 0) throw std::runtime_error("type library: not of the expected form");
    const std::size_t help = (WordAt(file, kFlagsOffset) & kHasHelpLibrary) != 0 ? 4 : 0;
    directory_ = kHeaderSize + help + 4 * std::size_t{WordAt(file, kTypeCountOffset)};
    customData_ = SegmentAt(kCustomDataSegment);
    end_ = file.size();
  }

  void Finish() {
    PutTextDefaults();
    PutDynamicDefaults();
    for (const std::string_view name : ReservedNames()) TakeUnderscoreOff(name);
    CountArraysFromOne();
    DropTimeStamp();
  }

 private:
  Segment SegmentAt(std::size_t index) const {
    const std::size_t entry = directory_ + index * kDirectoryEntrySize;
    const Segment result{WordAt(file_, entry), WordAt(file_, entry + 4)};
    if (result.offset + result.length > file_.size()) throw std::runtime_error("type library: bad directory");
    return result;
  }

  // The descriptions of functions follow the last segment.
  std::size_t FunctionsBegin() const {
    std::size_t result = 0;
    for (std::size_t i = 0; i < kSegments; ++i) {
      const std::size_t entry = directory_ + i * kDirectoryEntrySize;
      const std::uint32_t offset = WordAt(file_, entry);
      if (offset == 0xFFFFFFFFU) continue;
      const Segment segment = SegmentAt(i);
      result = std::max(result, segment.offset + segment.length);
    }
    return result;
  }

  void PutTextDefaults() {
    const auto texts = DefaultTexts();
    for (std::size_t offset = FunctionsBegin(); offset + 4 <= end_; offset += 4) {
      const std::uint32_t word = WordAt(file_, offset);
      const std::uint32_t first =
          0x80000000U | kTextType << 26U | static_cast<std::uint32_t>(kTextDefaultMarker);
      if (word < first || word >= first + texts.size()) continue;
      SetWord(file_, offset, OffsetOfText(ToUtf8(texts[word - first])));
    }
  }

  std::uint32_t OffsetOfText(const std::string& text) const {
    std::string wanted("\x08\x00", 2);
    const auto length = static_cast<std::uint32_t>(text.size());
    wanted.append(reinterpret_cast<const char*>(&length), sizeof length).append(text);
    const std::string_view data(file_.data() + customData_.offset, customData_.length);
    for (std::size_t at = data.find(wanted); at != std::string_view::npos; at = data.find(wanted, at + 1)) {
      if (at % 4 == 0) return static_cast<std::uint32_t>(at);
    }
    throw std::runtime_error("type library: no custom data for the default \"" + text + "\"");
  }

  // A number as the default of a dynamic value is a number, not a dynamic value.
  void PutDynamicDefaults() {
    for (std::size_t at = customData_.offset; at + 8 <= customData_.offset + customData_.length; at += 4) {
      std::uint16_t type = 0;
      std::memcpy(&type, file_.data() + at, sizeof type);
      const bool padded = file_.compare(at + 6, 2, "WW") == 0;
      if (type == kDynamicType && padded) std::memcpy(file_.data() + at, &kLongType, sizeof kLongType);
    }
  }

  std::uint32_t FindName(std::string_view name) const {
    const Segment names = SegmentAt(kNameSegment);
    for (std::size_t at = 0; at + kNameHead <= names.length;) {
      const std::size_t length = WordAt(file_, names.offset + at + 8) & 0xFFU;
      if (file_.compare(names.offset + at + kNameHead, length, name) == 0)
        return static_cast<std::uint32_t>(at);
      at += kNameHead + WholeWords(length);
    }
    throw std::runtime_error("type library: no name \"" + std::string(name) + "\"");
  }

  // The place of the word that leads to the name at `offset`.
  std::size_t LinkTo(std::uint32_t offset, std::uint32_t hash) const {
    std::size_t link = SegmentAt(kNameHashSegment).offset + 4 * std::size_t{hash & 0x7FU};
    while (WordAt(file_, link) != offset) {
      if (WordAt(file_, link) == kNoName) throw std::runtime_error("type library: bad table of names");
      link = SegmentAt(kNameSegment).offset + WordAt(file_, link) + 4;
    }
    return link;
  }

  void TakeUnderscoreOff(std::string_view name) {
    const std::string written = std::string(name) + "_";
    const std::uint32_t position = FindName(written);
    const std::size_t at = SegmentAt(kNameSegment).offset + position;
    const std::uint32_t word = WordAt(file_, at + 8);
    if (word >> 16U != HashOfName(written) || WholeWords(name.size()) != WholeWords(written.size())) {
      throw std::runtime_error("type library: the name \"" + written + "\" cannot be changed");
    }
    const std::uint32_t hash = HashOfName(name);
    SetWord(file_, LinkTo(position, word >> 16U), WordAt(file_, at + 4));
    const std::size_t first = SegmentAt(kNameHashSegment).offset + 4 * std::size_t{hash & 0x7FU};
    SetWord(file_, at + 4, WordAt(file_, first));
    SetWord(file_, first, position);
    SetWord(file_, at + 8, hash << 16U | (word & 0xFF00U) | static_cast<std::uint32_t>(name.size()));
    file_[at + kNameHead + name.size()] = kFill;
    SetWord(file_, kNameCharactersOffset, WordAt(file_, kNameCharactersOffset) - 1);
  }

  // The arrays are the fader record's. The description language has no other lower bound than 0.
  void CountArraysFromOne() {
    const Segment arrays = SegmentAt(kArraySegment);
    for (std::size_t at = 0; at < arrays.length; at += kArrayDescriptionSize) {
      const std::size_t array = arrays.offset + at;
      if ((WordAt(file_, array + 4) & 0xFFFFU) != 1 || WordAt(file_, array + 12) != 0)
        throw std::runtime_error("type library: an array of another form");
      SetWord(file_, array + 12, 1);
    }
  }

  void DropTimeStamp() {
    const std::size_t begin = file_.find("Created by WIDL");
    if (begin == std::string::npos) return;
    const std::size_t stamp = file_.find(" at ", begin);
    const std::size_t end = file_.find('\n', begin);
    if (stamp == std::string::npos || end == std::string::npos) return;
    file_.replace(stamp, end - stamp, end - stamp, ' ');
  }

  std::string& file_;
  std::size_t directory_ = 0;
  Segment customData_{};
  std::size_t end_ = 0;
};

}  // namespace

void FinishTypeLibrary(std::string& library) {
  Finisher(library).Finish();
}

}  // namespace vestrel::component
