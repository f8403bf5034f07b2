// The folders of shows and pages in a data folder, as a host keeps them: what is deleted is put aside under
// "Deleted", where nothing is overwritten. Knows nothing of what is in the files. Raises 52 for a name that
// is no folder's, 76 where there is no such folder, and 75 where the new name is taken or the system refuses.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace vestrel::workbench {

class ShowFolders {
 public:
  explicit ShowFolders(std::filesystem::path dataFolder) : dataFolder_(std::move(dataFolder)) {}

  bool Exists(std::u16string_view name) const;
  // In alphabetical order; empty when there is no other one.
  std::u16string FirstShowBut(std::u16string_view name) const;
  void RenameShow(std::u16string_view from, std::u16string_view to) const;
  void PutShowAside(std::u16string_view name) const;
  // Brings what the page's old folder holds to its new one, which may hold its first files already: those
  // give way. Nothing when there is no old folder.
  void MovePage(std::u16string_view show, std::u16string_view from, std::u16string_view to) const;
  // Nothing when there is no such folder.
  void PutPageAside(std::u16string_view show, std::u16string_view page) const;

 private:
  std::filesystem::path Show(std::u16string_view name) const;
  std::filesystem::path Page(std::u16string_view show, std::u16string_view page) const;
  void PutAside(const std::filesystem::path& folder, const std::u16string& name) const;

  std::filesystem::path dataFolder_;
};

}  // namespace vestrel::workbench
