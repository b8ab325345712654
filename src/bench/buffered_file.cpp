#include "bench/buffered_file.h"

#include <algorithm>
#include <cstring>

namespace zelvo::bench {

std::unique_ptr<BufferedFile> BufferedFile::Create(const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return nullptr;
  return std::unique_ptr<BufferedFile>(new BufferedFile(file));
}

// Uninitialised on purpose: pages that are never written cost no memory.
BufferedFile::BufferedFile(std::FILE* file) : file_(file), buffer_(new char[Size]) {
  std::setvbuf(file_, nullptr, _IONBF, 0);
}

BufferedFile::~BufferedFile() {
  Flush();
  std::fclose(file_);
}

void BufferedFile::Put(std::string_view text) {
  while (!text.empty()) {
    const std::size_t piece = std::min(text.size(), Longest);
    char* place = Reserve(piece);
    std::memcpy(place, text.data(), piece);
    Commit(place + piece);
    text.remove_prefix(piece);
  }
}

void BufferedFile::Flush() {
  if (whole_ && used_ > 0) whole_ = std::fwrite(buffer_.get(), 1, used_, file_) == used_;
  used_ = 0;
}

}  // namespace zelvo::bench
