#include "storage/ProfileChange.h"

#include <algorithm>

#include "platform/Platform.h"
#include "storage/ProfilePlan.h"
#include "storage/ProfileSplice.h"
#include "storage/ProfileText.h"
#include "storage/Utf16Text.h"

namespace vestrel {
namespace {

using Kind = ProfileChange::Kind;

// Stretches up to this length are compared before the whole file is made.
constexpr std::size_t kComparedAlone = 4 * kSectorSize;

std::string FromPage(std::string_view bytes) {
  return utf16::FromText(platform::encoding().Widen(bytes));
}

std::string ToPage(std::string_view text) {
  bool lossy = false;
  return platform::encoding().Narrow(utf16::ToText(text), lossy);
}

// The edits in the form that the text of a file in UTF-16 has.
ProfileEdits InUtf16(std::span<const ProfileEdit> edits) {
  ProfileEdits result;
  for (const ProfileEdit& edit : edits) {
    const std::string section = FromPage(edit.section);
    const std::string key = FromPage(edit.key);
    const std::string value = edit.value ? FromPage(*edit.value) : std::string();
    result.Add({section, key, edit.value ? std::optional<std::string_view>(value) : std::nullopt});
  }
  return result;
}

std::string Edited(std::string_view text, std::span<const ProfileEdit> edits) {
  std::string result(text);
  while (!edits.empty()) {
    const std::size_t length = ProfileText::RunLength(edits);
    const ProfilePlan plan(result, edits.first(length));
    result = Spliced(result, 0, result.size(), plan.splices());
    edits = edits.subspan(length);
  }
  return result;
}

bool KeepsLength(std::span<const ProfileSplice> splices) {
  std::size_t gone = 0;
  std::size_t come = 0;
  for (const ProfileSplice& splice : splices) {
    gone += splice.length;
    come += splice.text.size();
  }
  return gone == come;
}

// The bytes at the front of the texts, which are of one length, that are equal.
std::size_t EqualFront(std::string_view a, std::string_view b) {
  return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin()).first - a.begin());
}

std::size_t EqualBack(std::string_view a, std::string_view b) {
  return static_cast<std::size_t>(std::mismatch(a.rbegin(), a.rend(), b.rbegin()).first - a.rbegin());
}

ProfileChange Whole(std::string bytes) {
  return {Kind::Whole, 0, std::move(bytes)};
}

// Overwrites bytes [first, first + now.size()), which hold `was`, if a sector holds all that differs.
ProfileChange InPlace(std::size_t first, std::string_view was, std::string_view now) {
  const std::size_t front = EqualFront(was, now);
  if (front == now.size()) return {};
  const std::size_t back = EqualBack(was, now);
  const std::size_t offset = first + front;
  const std::size_t size = now.size() - front - back;
  if (offset / kSectorSize != (offset + size - 1) / kSectorSize) return Whole({});
  return {Kind::InPlace, offset, std::string(now.substr(front, size))};
}

ProfileChange ChangeOf(std::string_view file, std::string now) {
  if (file.size() != now.size()) return Whole(std::move(now));
  ProfileChange change = InPlace(0, file, now);
  if (change.kind == Kind::Whole) change.bytes = std::move(now);
  return change;
}

// Where the splices keep the file's length. Only the stretch [first, end) from the first splice to the last
// is looked at; it is all that is copied of a large file where it is so short that it may well go in place.
ProfileChange ChangeInside(std::string_view file, std::size_t first, std::size_t end,
                           std::span<const ProfileSplice> splices) {
  const std::string_view was = file.substr(first, end - first);
  if (was.size() > kComparedAlone) {
    std::string now = Spliced(file, 0, file.size(), splices);
    ProfileChange change = InPlace(first, was, std::string_view(now).substr(first, was.size()));
    if (change.kind == Kind::Whole) change.bytes = std::move(now);
    return change;
  }
  ProfileChange change = splices.size() == 1 ? InPlace(first, was, splices.front().text)
                                             : InPlace(first, was, Spliced(file, first, end, splices));
  if (change.kind == Kind::Whole) change.bytes = Spliced(file, 0, file.size(), splices);
  return change;
}

ProfileChange ChangeOf(std::string_view file, std::span<const ProfileSplice> splices) {
  if (splices.empty()) return {};
  if (!KeepsLength(splices)) return Whole(Spliced(file, 0, file.size(), splices));
  return ChangeInside(file, splices.front().offset, splices.back().offset + splices.back().length, splices);
}

}  // namespace

ProfileChange PlanChange(std::string_view file, std::span<const ProfileEdit> edits) {
  if (edits.empty()) return {};
  const bool narrow = !utf16::HasMark(file);
  if (narrow && ProfileText::RunLength(edits) == edits.size()) {
    return ChangeOf(file, ProfilePlan(file, edits).splices());
  }
  return ChangeOf(file, EditedFile(file, edits));
}

std::string EditedFile(std::string_view file, std::span<const ProfileEdit> edits) {
  if (!utf16::HasMark(file)) return Edited(file, edits);
  const std::string text = utf16::Decode(file);
  std::string now = Edited(text, InUtf16(edits).view());
  if (now == text) return std::string(file);
  if (text.empty()) now.insert(0, "\r\n");  // the mark counts as a line without an end
  return utf16::Encode(now);
}

std::optional<std::string> FindInFile(std::string_view file, std::string_view section, std::string_view key) {
  if (utf16::HasMark(file)) {
    const std::string text = utf16::Decode(file);
    const auto value = ProfileText(text).Find(FromPage(section), FromPage(key));
    return value ? std::optional(ToPage(*value)) : std::nullopt;
  }
  const auto value = ProfileText(file).Find(section, key);
  return value ? std::optional<std::string>(*value) : std::nullopt;
}

}  // namespace vestrel
