// Preloaded into the program: a disk that counts and records what is done to the files of the data
// folder, fails when it is told to, and ends the program between two operations.
#include "campaign/disk.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <string>
#include <string_view>

namespace quillet::campaign {
namespace {

Disk* disk = nullptr;
int record = -1;
std::mutex mutex;  // operations come one after the other, as they are recorded

// The function that we stand in front of.
template <typename Function>
Function* next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}
#define NEXT(name) static auto* const real = next<decltype(name)>(#name)

__attribute__((constructor)) void attach() {
  const char* file = std::getenv("QUILLET_DISK");
  if (file == nullptr) return;
  const int fd = static_cast<int>(syscall(SYS_openat, AT_FDCWD, file, O_RDWR | O_CLOEXEC));
  void* memory = mmap(nullptr, sizeof(Disk), PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
  if (memory == MAP_FAILED) abort();
  unsetenv("LD_PRELOAD");
  unsetenv("QUILLET_DISK");
  disk = static_cast<Disk*>(memory);
  // What a forked process does to a copy of the folder is its own affair.
  pthread_atfork(nullptr, nullptr, [] { disk = nullptr; });
  if (*disk->record) {
    record = static_cast<int>(syscall(SYS_openat, AT_FDCWD, disk->record,
                                      O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
  }
}

// The path below the data folder, "." for that itself, "" for any other.
std::string_view within(std::string_view path) {
  const std::string_view folder = disk ? disk->folder : "";
  if (!folder.empty() && path == folder.substr(0, folder.size() - 1)) return ".";
  if (folder.empty() || !path.starts_with(folder)) return {};
  return path.substr(folder.size());
}

class OpenFile {
 public:
  explicit OpenFile(int fd) {
    if (!disk) return;
    const std::string link = "/proc/self/fd/" + std::to_string(fd);
    const ssize_t size = readlink(link.c_str(), text_.data(), text_.size());
    if (size > 0) path_ = within({text_.data(), static_cast<std::size_t>(size)});
  }
  std::string_view path() const { return path_; }

 private:
  std::array<char, 512> text_;
  std::string_view path_;
};

void note(Operation::Kind kind, std::string_view path, off_t offset, const void* data,
          std::size_t size) {
  if (disk == nullptr || record < 0) return;
  const Operation operation{kind, static_cast<std::uint32_t>(path.size()), offset, size};
  iovec parts[] = {{const_cast<Operation*>(&operation), sizeof operation},
                   {const_cast<char*>(path.data()), path.size()},
                   {const_cast<void*>(data), data == nullptr ? 0 : size}};
  if (syscall(SYS_writev, record, parts, 3) < 0) abort();
}

bool fails(bool grows) {
  const std::int64_t number = disk->operations + 1;
  switch (disk->plan) {
    case Disk::Plan::failOnce:
      return number == disk->at;
    case Disk::Plan::failOnwards:
      return number >= disk->at;
    case Disk::Plan::full:
      return number >= disk->at && grows;
    default:
      return false;
  }
}

struct Change {
  Operation::Kind kind;
  std::string_view path;
  off_t offset = 0;
  const void* data = nullptr;
  std::size_t size = 0;
  bool grows = false;
};

// Carries the operation out, or not.
template <typename Act>
auto carryOut(const Change& change, const Act& act) -> decltype(act()) {
  if (change.path.empty()) return act();
  const std::lock_guard lock(mutex);
  if (disk->begun && fails(change.grows)) {
    ++disk->operations;
    errno = disk->plan == Disk::Plan::full ? ENOSPC : EIO;
    return -1;
  }
  const auto result = act();
  const int error = errno;
  if (result >= 0) note(change.kind, change.path, change.offset, change.data, change.size);
  if (disk->begun && ++disk->operations == disk->at && disk->plan == Disk::Plan::kill) {
    kill(getpid(), SIGKILL);
  }
  errno = error;
  return result;
}

off_t sizeOf(int fd) {
  struct stat status {};
  return fstat(fd, &status) == 0 ? status.st_size : 0;
}

template <typename Act>
ssize_t writeAt(int fd, off_t offset, const void* data, std::size_t size, const Act& act) {
  const OpenFile file(fd);
  if (file.path().empty()) return act();
  const off_t end = sizeOf(fd);
  if (offset < 0) {
    offset = (fcntl(fd, F_GETFL) & O_APPEND) != 0 ? end : lseek(fd, 0, SEEK_CUR);
  }
  return carryOut(
      {Operation::write, file.path(), offset, data, size, offset + static_cast<off_t>(size) > end},
      act);
}

template <typename Act>
int openFile(const char* path, int flags, const Act& act) {
  if ((flags & O_CREAT) == 0 || access(path, F_OK) == 0) return act();
  return carryOut({.kind = Operation::create, .path = within(path), .grows = true}, act);
}

mode_t modeIn(int flags, va_list arguments) {
  return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
}

std::int64_t microseconds() {
  return std::chrono::duration_cast<std::chrono::microseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

}  // namespace
}  // namespace quillet::campaign

using namespace quillet::campaign;

extern "C" {

// --- called by the script
int disk_begin(void*) {
  const std::lock_guard lock(mutex);
  note(Operation::begin, {}, disk->acknowledged, nullptr, 0);
  disk->begun = true;
  disk->microseconds -= microseconds();
  return 0;
}
int disk_acknowledge(void*) {
  const std::lock_guard lock(mutex);
  note(Operation::acknowledge, {}, ++disk->acknowledged, nullptr, 0);
  disk->microseconds += microseconds();
  disk->ofActs = disk->operations.load();
  return 0;
}
int disk_failed(void*) {
  ++disk->failed;
  return 0;
}

// --- what the program calls
ssize_t write(int fd, const void* data, std::size_t size) {
  NEXT(write);
  return writeAt(fd, -1, data, size, [&] { return real(fd, data, size); });
}
ssize_t writev(int fd, const iovec* parts, int count) {
  NEXT(writev);
  std::string all;
  for (int i = 0; i < count; ++i) {
    all.append(static_cast<const char*>(parts[i].iov_base), parts[i].iov_len);
  }
  return writeAt(fd, -1, all.data(), all.size(), [&] { return real(fd, parts, count); });
}
ssize_t pwrite(int fd, const void* data, std::size_t size, off_t offset) {
  NEXT(pwrite);
  return writeAt(fd, offset, data, size, [&] { return real(fd, data, size, offset); });
}
ssize_t pwrite64(int fd, const void* data, std::size_t size, off64_t offset) {
  NEXT(pwrite64);
  return writeAt(fd, offset, data, size, [&] { return real(fd, data, size, offset); });
}
int ftruncate64(int fd, off64_t size) noexcept {
  NEXT(ftruncate64);
  const OpenFile file(fd);
  return carryOut(
      {.kind = Operation::resize, .path = file.path(), .offset = size, .grows = size > sizeOf(fd)},
      [&] { return real(fd, size); });
}
int fallocate64(int fd, int mode, off64_t offset, off64_t size) {
  NEXT(fallocate64);
  const OpenFile file(fd);
  return carryOut({.kind = Operation::resize,
                   .path = file.path(),
                   .offset = std::max(offset + size, sizeOf(fd)),
                   .grows = true},
                  [&] { return real(fd, mode, offset, size); });
}
int fsync(int fd) {
  NEXT(fsync);
  const OpenFile file(fd);
  return carryOut({.kind = Operation::sync, .path = file.path()}, [&] { return real(fd); });
}
int fdatasync(int fd) {
  NEXT(fdatasync);
  const OpenFile file(fd);
  return carryOut({.kind = Operation::sync, .path = file.path()}, [&] { return real(fd); });
}
int open(const char* path, int flags, ...) {
  NEXT(open);
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = modeIn(flags, arguments);
  va_end(arguments);
  return openFile(path, flags, [&] { return real(path, flags, mode); });
}
int open64(const char* path, int flags, ...) {
  NEXT(open64);
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = modeIn(flags, arguments);
  va_end(arguments);
  return openFile(path, flags, [&] { return real(path, flags, mode); });
}
FILE* fopen64(const char* path, const char* mode) {
  NEXT(fopen64);
  if (mode[0] != 'r') openFile(path, O_CREAT, [] { return 0; });
  return real(path, mode);
}
int rename(const char* from, const char* to) noexcept {
  NEXT(rename);
  const std::string_view after = within(to);
  return carryOut({Operation::rename, within(from), 0, after.data(), after.size()},
                  [&] { return real(from, to); });
}
int unlink(const char* path) noexcept {
  NEXT(unlink);
  return carryOut({.kind = Operation::remove, .path = within(path)}, [&] { return real(path); });
}
int remove(const char* path) noexcept {
  NEXT(remove);
  return carryOut({.kind = Operation::remove, .path = within(path)}, [&] { return real(path); });
}
int unlinkat(int folder, const char* path, int flags) noexcept {
  NEXT(unlinkat);
  const std::string whole = std::string(OpenFile(folder).path()) + '/' + path;
  const bool ours = folder != AT_FDCWD && whole.front() != '/';
  return carryOut(
      {.kind = Operation::remove, .path = ours ? std::string_view(whole) : within(path)},
      [&] { return real(folder, path, flags); });
}

// --- ways round the functions above: mapped files and the kernel's queues, which the server does
// without where there are none
void* mmap64(void* at, std::size_t size, int protection, int flags, int fd,
             off64_t offset) noexcept {
  NEXT(mmap64);
  if ((flags & MAP_SHARED) != 0 && (protection & PROT_WRITE) != 0 && !OpenFile(fd).path().empty()) {
    errno = ENODEV;
    return MAP_FAILED;
  }
  return real(at, size, protection, flags, fd, offset);
}
int io_setup(int, void*) { return -ENOSYS; }
int io_uring_queue_init(unsigned, void*, unsigned) { return -ENOSYS; }

}  // extern "C"
