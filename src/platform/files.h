// Text files of the program: whole-file reads, and writes that leave the old or the new file but never half.
#pragma once

#include <optional>
#include <string>

namespace zelvo::platform {

/// The whole content, byte for byte; nothing when the file is missing, a directory, unreadable, larger than
/// 2 GB or than the memory at hand.
[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::string& path);

/// Replaces the file by `content` through a temporary file beside it (written, synced, renamed). False when
/// the folder, the disk or the old file's own protection refuses; the old file is then still whole. A link is
/// followed, so that its target changes or comes into being.
[[nodiscard]] bool ReplaceFile(const std::string& path, const std::string& content);

}  // namespace zelvo::platform
