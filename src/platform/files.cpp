#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <stdexcept>

namespace zelvo::platform {
namespace {

/// Beyond this a sparse file could take all memory of the machine before anything refuses.
constexpr off_t LargestText = off_t{2} << 30;

/// A POSIX descriptor that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  [[nodiscard]] int Get() const { return fd_; }
  [[nodiscard]] bool Close() {
    const int fd = fd_;
    fd_ = -1;
    return ::close(fd) == 0;
  }

 private:
  int fd_;
};

bool WriteAll(int fd, const std::string& content) {
  size_t done = 0;
  while (done < content.size()) {
    const ssize_t n = ::write(fd, content.data() + done, content.size() - done);
    if (n <= 0) return false;
    done += static_cast<size_t>(n);
  }
  return true;
}

/// Where `path` leads over links, the last of which may dangle; nothing when they lead round in a circle.
std::optional<std::string> ResolveLinks(const std::string& path) {
  constexpr int MostLinks = 40;  // as many as the kernel follows
  std::filesystem::path target = path;
  std::error_code error;
  for (int links = 0; std::filesystem::is_symlink(target, error); ++links) {
    const std::filesystem::path next = std::filesystem::read_symlink(target, error);
    if (error || links == MostLinks) return std::nullopt;
    target = target.parent_path() / next;
  }
  return target.string();
}

}  // namespace

std::optional<std::string> ReadWholeFile(const std::string& path) {
  // O_NONBLOCK: a pipe named as a HEX file must not stop the program in open().
  Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat info {};
  if (file.Get() < 0 || ::fstat(file.Get(), &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
  if (info.st_size > LargestText) return std::nullopt;
  try {
    std::string content(static_cast<size_t>(info.st_size), '\0');
    size_t done = 0;
    while (done < content.size()) {
      const ssize_t n = ::read(file.Get(), content.data() + done, content.size() - done);
      if (n < 0) return std::nullopt;
      if (n == 0) break;
      done += static_cast<size_t>(n);
    }
    content.resize(done);
    return content;
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  } catch (const std::length_error&) {
    return std::nullopt;
  }
}

namespace {

/// With its slash; empty for a bare name. A temporary file has a short name of its own, since the target's
/// may be as long as a name can be.
std::string FolderOf(const std::string& path) {
  const size_t slash = path.rfind('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

}  // namespace

bool ReplaceFile(const std::string& path, const std::string& content) {
  const std::optional<std::string> resolved = ResolveLinks(path);
  if (!resolved) return false;
  const std::string& target = *resolved;
  struct stat old {};
  const bool exists = ::stat(target.c_str(), &old) == 0;
  // A device or a pipe must not be replaced by a file, least of all by the superuser.
  if (exists && !S_ISREG(old.st_mode)) return false;
  // The rename would not ask: a file protected against writing stays.
  if (exists && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) return false;
  // A limit on the size of files is an error to be told, not the end of the program.
  std::signal(SIGXFSZ, SIG_IGN);
  std::string temporary = FolderOf(target) + ".zelvo-XXXXXX";
  Descriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
  if (file.Get() < 0) return false;

  // mkostemp gives 0600; a file that replaces another keeps that one's mode, a new one follows the umask.
  const mode_t mask = ::umask(0);
  ::umask(mask);
  const mode_t mode = exists ? (old.st_mode & 07777) : (0666 & ~mask);

  const bool written = WriteAll(file.Get(), content) && ::fchmod(file.Get(), mode) == 0 &&
                       ::fsync(file.Get()) == 0 && file.Close() &&
                       std::rename(temporary.c_str(), target.c_str()) == 0;
  if (!written) ::unlink(temporary.c_str());
  return written;
}

}  // namespace zelvo::platform
