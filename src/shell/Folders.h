// The Data and Work folders: where they are proposed, how the user chooses
// them at the first start, and the copy of the installation files into them.
// Every path comes back with a trailing separator.
#pragma once

#include <cstdint>
#include <string>

namespace corvalin {

// Status codes of the folder path routines.
using HResult = int32_t;
inline constexpr HResult HResultOk = 0;
inline constexpr HResult HResultFail = static_cast<HResult>(0x80004005u);

// The special folder ids the program asks for.
inline constexpr int SpecialFolderDocuments = 5;
// The product folder's name under the documents folder.
inline constexpr const char* ProductFolderName = "Orvanta";

// The platform's special folder, with a trailing separator. The documents
// folder is the XDG documents folder (XDG_DOCUMENTS_DIR, from the environment
// or the user-dirs file of the configuration folder, $HOME expanded), else
// $HOME/Documents. An id the platform does not know gives HResultFail and an
// empty path.
HResult GetSpecialFolderPath(int specialFolderId, std::string& path);
// The special folder + company + product, each made when create is true.
// The path is composed in full even when the special folder is missing and
// create is false; the status then says HResultFail.
HResult GetCompanyProductFolderPath(int specialFolderId, const std::string& company, const std::string& product,
                                    bool create, std::string& path);
HResult GetMyDocumentsFolderPath(const std::string& company, const std::string& product, bool create,
                                 std::string& path);
// <Documents>/Orvanta/
std::string GetProductFolderPath(bool create);
// <Documents>/Orvanta/Work/ and <Documents>/Orvanta/Data/
std::string GetWorkFolderPath(bool create);
std::string GetDataFolderPath(bool create);

// The Data or Work folder as the settings name it. The program works from
// its own folder, so a relative folder would land inside the installation;
// a folder typed without a leading separator is taken from the user's home,
// as a path in the user's own settings is meant. Empty stays empty.
std::string FolderOfSetting(const std::string& value);

// Asks for the Data (Work) folder: the default place, or one the user picks.
// On success the folder is filled from the installation, saved as DataDir
// (WorkDir) in section Common, the old key of section Brenwick is removed, and
// folder holds the choice. False when the user gave up; folder is unchanged.
bool LocateDataFolder(std::string& folder);
bool LocateWorkFolder(std::string& folder);

// Copies each file directly in source (no subfolders, in name order) into
// target, asking first about a file that is already there when
// askBeforeOverwrite is true. Every target file handled is made writable.
// Returns the number of files handled.
int CopyInstallationFiles(const std::string& source, const std::string& target, bool askBeforeOverwrite,
                          const std::string& title);

// The folder dialog; the empty string when cancelled.
std::string BrowseForFolder(const std::string& title, const std::string& initialFolder);

}  // namespace corvalin
