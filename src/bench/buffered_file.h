// A file that is written in large pieces: the records of a run can be a hundred million lines.
#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace zelvo::bench {

class BufferedFile {
 public:
  /// Opens and empties the file; nullptr when it cannot be written. A file that cannot be opened is not
  /// touched.
  [[nodiscard]] static std::unique_ptr<BufferedFile> Create(const std::string& path);
  BufferedFile(const BufferedFile&) = delete;
  BufferedFile& operator=(const BufferedFile&) = delete;
  ~BufferedFile();

  /// Room for `bytes` (at most `Longest`) more; what was filled in is taken over by `Commit` with its end.
  static constexpr std::size_t Longest = 4096;
  [[nodiscard]] char* Reserve(std::size_t bytes) {
    if (Size - used_ < bytes) Flush();
    return buffer_.get() + used_;
  }
  void Commit(const char* end) { used_ = static_cast<std::size_t>(end - buffer_.get()); }

  void Put(std::string_view text);
  void Flush();
  /// False once anything could not be written, as on a full disk; what came after it is lost.
  [[nodiscard]] bool Whole() const { return whole_; }

 private:
  explicit BufferedFile(std::FILE* file);

  static constexpr std::size_t Size = std::size_t{1} << 20;
  std::FILE* file_;
  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;
  bool whole_ = true;
};

}  // namespace zelvo::bench
