// The platform's path primitives. The path separator of this platform is
// defined here and nowhere else; folders carry it at their end.
#pragma once

#include <cstddef>
#include <string>

namespace corvalin {

inline constexpr char PathSeparator = '/';
inline constexpr const char* PathSeparatorText = "/";
// The root folder: what a drive root is on other platforms.
inline constexpr const char* RootFolder = "/";

// Paths are handed to the platform in a buffer of this many characters.
inline constexpr std::size_t kMaxPath = 260;

// True when a file or folder of that name exists.
bool PathExists(const std::string& path);
// True when the path names an existing folder.
bool IsDirectory(const std::string& path);
// The path with a separator at its end. An empty path stays empty, a path
// that ends in the separator is unchanged. A path longer than the buffer is
// the error "Invalid procedure call or argument"; a path that just fits has
// no room for the separator and comes back unchanged.
std::string AddBackslash(const std::string& path);
// True when the path is absolute here: it begins with the separator.
bool IsAbsolutePath(const std::string& path);
// True when the two paths name one file: the same text, or the same file on
// the disk under another spelling, a symbolic or a hard link; a path that
// does not name a file yet is compared by its folders, links resolved, and
// its name.
bool SameFile(const std::string& a, const std::string& b);

}  // namespace corvalin
