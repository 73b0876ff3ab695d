// Preloaded into a program by bench/against: counts what the program synchronises to the disk, in
// the first eight bytes of the file that SYNC_COUNTER names.
#define _GNU_SOURCE
#include <dlfcn.h>
#include <fcntl.h>
#include <stdatomic.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <unistd.h>

static atomic_llong* counter;

__attribute__((constructor)) static void open_counter(void) {
  const char* name = getenv("SYNC_COUNTER");
  const int file = name == NULL ? -1 : open(name, O_RDWR | O_CLOEXEC);
  if (file < 0) return;
  void* memory = mmap(NULL, sizeof *counter, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  if (memory != MAP_FAILED) counter = memory;
  close(file);
}

static int counted(const char* name, int file) {
  if (counter != NULL) atomic_fetch_add(counter, 1);
  return ((int (*)(int))dlsym(RTLD_NEXT, name))(file);
}

int fsync(int file) { return counted("fsync", file); }
int fdatasync(int file) { return counted("fdatasync", file); }
