#include "shell/Folders.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <vector>

#include "shell/Error.h"
#include "shell/Failure.h"
#include "shell/RunState.h"
#include "shell/Settings.h"
#include "shell/ShellPath.h"
#include "shell/Text.h"
#include "shell/Toolkit.h"

namespace corvalin {

namespace fs = std::filesystem;

namespace {

std::string Home() {
  const char* home = std::getenv("HOME");
  return home != nullptr ? home : "";
}

std::string ConfigHome() {
  const char* xdg = std::getenv("XDG_CONFIG_HOME");
  if (xdg != nullptr && *xdg != '\0') return xdg;
  return Home() + "/.config";
}

// A value of the user-dirs file: "$HOME/Documents" with $HOME expanded.
std::string ExpandHome(std::string value) {
  if (StartsWith(value, "$HOME")) value = Home() + value.substr(5);
  else if (StartsWith(value, "${HOME}")) value = Home() + value.substr(7);
  return value;
}

std::string DocumentsFolder() {
  const char* env = std::getenv("XDG_DOCUMENTS_DIR");
  if (env != nullptr && *env != '\0') return ExpandHome(env);
  std::ifstream in(ConfigHome() + "/user-dirs.dirs");
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::string key = "XDG_DOCUMENTS_DIR=";
    if (!StartsWith(TrimBlanks(line), key)) continue;
    std::string value = TrimBlanks(line).substr(key.size());
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"') value = value.substr(1, value.size() - 2);
    if (!value.empty()) return ExpandHome(value);
  }
  return Home() + "/Documents";
}

void CreateFolder(const std::string& path) {
  std::error_code ec;
  if (!fs::create_directory(path, ec) && ec) {
    Raise(ec == std::errc::permission_denied ? err::PermissionDenied : err::PathNotFound, "CreateFolder");
  }
}

// The words of one of the two folder questions.
struct FolderWords {
  const char* word;        // "Data"
  const char* settingKey;  // "DataDir"
  const char* copyTitle;   // "Copy Data Files"
  std::string (*defaultPath)(bool create);
};

bool LocateFolder(const FolderWords& words, std::string& folder) {
  const std::string word = words.word;
  const std::string defaultPath = words.defaultPath(false);
  const std::string title = std::string(ProductTitle) + " - " + word + " Folder";
  const Answer answer = UI().Message(
      {"Your " + word +
           " folder needs to be set up.  Choose Yes to use the following default location, or No to choose a "
           "custom folder.\r\n\r\n" +
           defaultPath,
       Buttons::YesNo, Icon::Question, title, 1});
  std::string chosen;
  if (answer == Answer::Yes) {
    chosen = words.defaultPath(true);
  } else {
    while (!IsDirectory(chosen)) {
      chosen = BrowseForFolder(std::string(ProductTitle) + " - Choose the " + word + " Folder", defaultPath);
      if (chosen.empty()) {
        const Answer again = UI().Message({"The " + word + " folder is required to successfully run " +
                                               ProductTitle + ".  Do you want to try again?",
                                           Buttons::RetryCancel, Icon::Question, title, 1});
        if (again == Answer::Cancel) return false;
      }
      chosen = AddBackslash(chosen);
    }
  }
  folder = chosen;
  const std::string source = Run().InstallFolder + word + PathSeparatorText;
  CopyInstallationFiles(source, folder, true, words.copyTitle);
  SaveSetting(SettingsApplication, "Common", words.settingKey, folder);
  DeleteSetting(SettingsApplication, "Brenwick", words.settingKey);
  return true;
}

}  // namespace

std::string FolderOfSetting(const std::string& value) {
  if (value.empty() || IsAbsolutePath(value)) return value;
  return Home() + PathSeparatorText + value;
}

HResult GetSpecialFolderPath(int specialFolderId, std::string& path) {
  if (specialFolderId != SpecialFolderDocuments) {
    path.clear();
    return HResultFail;
  }
  path = TrimAtNull(AddBackslash(DocumentsFolder()));
  return HResultOk;
}

HResult GetCompanyProductFolderPath(int specialFolderId, const std::string& company, const std::string& product,
                                    bool create, std::string& path) {
  try {
    HResult status = GetSpecialFolderPath(specialFolderId, path);
    if (status != HResultOk) return status;
    if (!IsDirectory(path)) {
      if (create) CreateFolder(path);
      else status = HResultFail;
    }
    for (const std::string* part : {&company, &product}) {
      if (part->empty()) continue;
      path += *part + PathSeparatorText;
      if (create && !IsDirectory(path)) CreateFolder(path);
    }
    return status;
  } catch (const std::exception& error) {
    throw WithSourceBehind(error, ",AppUtil.GetCompanyProductFolderPath()");
  }
}

HResult GetMyDocumentsFolderPath(const std::string& company, const std::string& product, bool create,
                                 std::string& path) {
  try {
    return GetCompanyProductFolderPath(SpecialFolderDocuments, company, product, create, path);
  } catch (const std::exception& error) {
    throw WithSourceBehind(error, ",AppUtil.GetMyDocumentsFolderPath()");
  }
}

std::string GetProductFolderPath(bool create) {
  std::string path;
  GetMyDocumentsFolderPath("", ProductFolderName, create, path);
  return path;
}

std::string GetWorkFolderPath(bool create) {
  const std::string path = GetProductFolderPath(create) + "Work" + PathSeparatorText;
  if (create && !IsDirectory(path)) CreateFolder(path);
  return path;
}

std::string GetDataFolderPath(bool create) {
  const std::string path = GetProductFolderPath(create) + "Data" + PathSeparatorText;
  if (create && !IsDirectory(path)) CreateFolder(path);
  return path;
}

bool LocateDataFolder(std::string& folder) {
  try {
    return LocateFolder({"Data", "DataDir", "Copy Data Files", &GetDataFolderPath}, folder);
  } catch (const std::exception& error) {
    throw WithSourceInFront(error, "KelmarUtil.LocateDataFolder(), ");
  }
}

bool LocateWorkFolder(std::string& folder) {
  try {
    return LocateFolder({"Work", "WorkDir", "Copy Work Files", &GetWorkFolderPath}, folder);
  } catch (const std::exception& error) {
    throw WithSourceInFront(error, "KelmarUtil.LocateWorkFolder(), ");
  }
}

int CopyInstallationFiles(const std::string& source, const std::string& target, bool askBeforeOverwrite,
                          const std::string& title) {
  std::error_code ec;
  if (!IsDirectory(source)) Raise(err::PathNotFound, "CopyInstallationFiles");
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(source, ec))
    if (entry.is_regular_file()) files.push_back(entry.path());
  if (ec) Raise(err::PathNotFound, "CopyInstallationFiles");
  std::sort(files.begin(), files.end());

  int count = 0;
  for (const auto& file : files) {
    const std::string name = file.filename().string();
    const std::string destination = target + name;
    bool copy = true;
    if (PathExists(destination) && askBeforeOverwrite) {
      const Answer answer = UI().Message(
          {"The following file already exists.  Overwrite with the original installation file?\r\n\r\n" +
               destination,
           Buttons::YesNo, Icon::Question, std::string(ProductTitle) + " - " + title, 2});
      copy = answer == Answer::Yes;
      if (copy && !fs::remove(destination, ec) && ec) Raise(err::PermissionDenied, "DeleteFile");
    }
    if (copy && !fs::copy_file(file, destination, fs::copy_options::overwrite_existing, ec))
      Raise(ec == std::errc::permission_denied ? err::PermissionDenied : err::PathFileAccess, "CopyFile");
    // A copy from read-only media must still be writable for the user.
    fs::permissions(destination,
                    fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read | fs::perms::others_read,
                    fs::perm_options::replace, ec);
    if (ec) Raise(err::PermissionDenied, "Attributes");
    ++count;
  }
  return count;
}

std::string BrowseForFolder(const std::string& title, const std::string& initialFolder) {
  return TrimAtNull(UI().BrowseForFolder(title, initialFolder));
}

}  // namespace corvalin
