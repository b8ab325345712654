#include "bench/buffered_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace zelvo::bench {

std::unique_ptr<BufferedFile> BufferedFile::Create(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (descriptor < 0) return nullptr;
  return std::unique_ptr<BufferedFile>(new BufferedFile(descriptor));
}

// Uninitialised on purpose: pages that are never written cost no memory.
BufferedFile::BufferedFile(int descriptor) : descriptor_(descriptor), buffer_(new char[Size]) {}

BufferedFile::~BufferedFile() {
  Flush();
  ::close(descriptor_);
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
  std::size_t done = 0;
  while (whole_ && done < used_) {
    const ssize_t n = ::write(descriptor_, buffer_.get() + done, used_ - done);
    if (n > 0) {
      done += static_cast<std::size_t>(n);
    } else if (errno != EINTR) {
      whole_ = false;
    }
  }
  used_ = 0;
}

}  // namespace zelvo::bench
