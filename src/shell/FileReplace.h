// A file replaced whole: the new bytes go to a new file beside the old one,
// which then takes the old one's name. A process killed at any moment, or a
// disk that fills, leaves the old file or the new one, never a part. This is
// how the stand list, the location file and the templates are saved.
//
// - A path that is a symbolic link (or a chain of them, relative or not) is
//   written where the links lead; the links stay links. A link that leads
//   nowhere yet makes the file where it points.
// - The file keeps its permission bits, and its owner and group where the
//   process may give them. A new file gets what a plain create gives: 0666
//   less the umask (and a default access list of its folder).
// - A file the user may not write stays as it is: the save fails with the
//   error the writing in place gave (the folder being writable is not enough).
// - A device or other special file (/dev/full, a pipe) cannot be replaced by a
//   name: it is written in place, as is a file the user may write in a folder
//   where no new file can be made.
// - The new file is hidden and named after the file it replaces:
//   ".<name>.<host>-<process id>-XXXXXX". A process killed outright leaves it;
//   the next save of the same file on this machine removes what processes
//   that are gone left of it.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace corvalin {

// Why a replacement failed: the system error code, and whether the new bytes
// had begun to go out (a file was open for them), which is when a writing in
// place would have been left with its file open.
struct ReplaceFailure {
  int code = 0;
  bool afterOpen = false;
};

// Replaces the file at path with bytes; nothing when it worked. On a failure
// the old file is as it was and no new file is left behind.
std::optional<ReplaceFailure> TryReplaceFileWhole(const std::string& path, std::string_view bytes);

// The same, raising the run-time error of the system error code (76 path not
// found, 61 disk full, 75 path/file access error otherwise).
void ReplaceFileWhole(const std::string& path, std::string_view bytes);

// The moments of a replacement that tests may stop at: the new file for the
// target (the file the path leads to) was written this far (first at 0, just
// made), or it took the target's name.
enum class ReplaceMoment { Written, Replaced };
using FileReplaceHook = std::function<void(const std::string& target, ReplaceMoment moment, std::size_t written)>;
// Empty: no hook.
void SetFileReplaceHook(FileReplaceHook hook);

// The bytes a new file receives at a time, between two moments of the hook.
inline constexpr std::size_t kReplacePieceBytes = std::size_t{1} << 20;

}  // namespace corvalin
