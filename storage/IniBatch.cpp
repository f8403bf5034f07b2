#include "storage/IniBatch.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <utility>

#include "core/FileError.h"
#include "storage/ProfileChange.h"
#include "storage/ProfileLines.h"
#include "storage/ProfileText.h"
#include "storage/Utf16Text.h"
#include "storage/clsIniFile.h"

namespace vestrel {
namespace {

thread_local IniBatch* innermost = nullptr;

// Quicker than the text's own comparison, which takes one unit at a time.
bool SamePath(std::u16string_view a, std::u16string_view b) noexcept {
  return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t)) == 0;
}

bool Concerns(const ProfileEdit& edit, std::string_view section, std::string_view key) {
  return profile::SameName(profile::TrimSpaces(edit.key), profile::TrimSpaces(key)) &&
         profile::SameName(profile::TrimSpaces(edit.section), profile::TrimSpaces(section));
}

}  // namespace

IniBatch::IniBatch(std::u16string_view fileName, Sync sync)
    : fileName_(fileName), sync_(sync), outer_(OpenFor(fileName)), before_(std::exchange(innermost, this)) {
  if (outer_ == nullptr) return;
  if (sync == Sync::Yes) outer_->sync_ = Sync::Yes;
  editsBefore_ = outer_->edits_.size();
  commitsBefore_ = outer_->commits_;
}

IniBatch::IniBatch(const clsIniFile& file, Sync sync) : IniBatch(file.filename(), sync) {}

IniBatch::~IniBatch() {
  if (IsBrokenOff()) {
    Drop();
  } else {
    try {
      Commit();
    } catch (...) {
      // Out of memory: as with any other failed write the file keeps what it had.
    }
  }
  innermost = before_;
}

bool IniBatch::IsBrokenOff() const noexcept {
  return !loads_ && std::uncaught_exceptions() > errorsBefore_;
}

void IniBatch::Drop() noexcept {
  IniBatch& gathering = outer_ != nullptr ? *outer_ : *this;
  const std::size_t kept = gathering.commits_ == commitsBefore_ ? editsBefore_ : 0;
  gathering.edits_.Shorten(kept);
}

bool IniBatch::Commit() {
  if (outer_ != nullptr) return outer_->Commit();
  Forget();
  ++commits_;
  const ProfileEdits edits = std::exchange(edits_, {});
  return edits.empty() || ProfileFile(fileName_).Commit(edits.view(), sync_) == platform::FileStatus::Ok;
}

void IniBatch::RequireReadable() {
  loads_ = true;
  if (outer_ != nullptr) return outer_->RequireReadable();
  Load();
  if (IsAbsent(readStatus_) || readStatus_ == platform::FileStatus::BadName) return;
  CheckFileStatus(readStatus_, u"IniBatch", fileName_);
}

IniBatch* IniBatch::OpenFor(std::u16string_view fileName) noexcept {
  for (IniBatch* batch = innermost; batch != nullptr; batch = batch->before_) {
    if (batch->outer_ == nullptr && SamePath(batch->fileName_, fileName)) return batch;
  }
  return nullptr;
}

void IniBatch::Add(const ProfileEdit& edit) {
  edits_.Add(edit);
}

std::optional<std::string_view> IniBatch::Find(std::string_view section, std::string_view key,
                                               std::optional<std::string>& own) {
  if (!loaded_) Load();
  if (edits_.empty() && reader_) return reader_->Find(section, key);
  return FindAmongPending(section, key, own);
}

// Where the pending writes are plain the last one of the key tells; otherwise they are made on a copy.
std::optional<std::string_view> IniBatch::FindAmongPending(std::string_view section, std::string_view key,
                                                           std::optional<std::string>& own) {
  const std::span<const ProfileEdit> edits = edits_.view();
  if (!ProfileText::ArePlain(edits)) return own = FindInFile(EditedFile(bytes_.view(), edits), section, key);
  const auto pending = std::find_if(edits.rbegin(), edits.rend(),
                                    [&](const ProfileEdit& edit) { return Concerns(edit, section, key); });
  if (pending != edits.rend()) return profile::ReadableValue(*pending->value);
  if (reader_) return reader_->Find(section, key);
  return own = FindInFile(bytes_.view(), section, key);
}

void IniBatch::Load() {
  if (std::exchange(loaded_, true)) return;
  readStatus_ = ReadWholeFile(fileName_, bytes_);
  if (readStatus_ != platform::FileStatus::Ok) bytes_ = {};
  if (!utf16::HasMark(bytes_.view())) reader_.emplace(bytes_.view());
}

void IniBatch::Forget() {
  loaded_ = false;
  reader_.reset();
  bytes_ = {};
}

}  // namespace vestrel
