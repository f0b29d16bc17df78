// Path text: folder and file parts, paths relative to the working directory,
// and the end of a folder path. The working directory is the caption of
// lblWorkingDirectory on frmTemplate, which no code sets: it stays empty, and
// the routines below depend on exactly that.
#pragma once

#include <string>

namespace corvalin {

// The caption of lblWorkingDirectory on frmTemplate. The label mirrors its
// caption here so that the path routines need no screen.
const std::string& WorkingDirectoryCaption();
void SetWorkingDirectoryCaption(const std::string& caption);

// The folder part with its trailing separator; a path without a separator
// gives the working directory caption (empty).
std::string FileFolderOf(const std::string& path);
// The text after the last separator; a path without a separator gives the
// working directory caption, so a bare file name gives an empty name.
std::string FileNameOf(const std::string& path);
// "." first: empty. Absolute: unchanged. Otherwise the working directory
// caption in front.
std::string ExpandWorkPath(const std::string& path);
// The path with the working directory caption taken off its front, when it
// begins with it.
std::string ShortenWorkPath(const std::string& path);
// A folder path without its last character (expected to be the separator).
// Empty stays empty; the root folder stays itself; any other one-character
// path is the error "Invalid procedure call or argument".
std::string TrimFolderEnd(const std::string& path);

}  // namespace corvalin
