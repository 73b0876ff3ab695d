#include "suite/stack_bounds.h"

#include <pthread.h>

// The sanitizers ask before main() runs, so they get the C library's function.
#ifndef __SANITIZE_ADDRESS__

#include <dlfcn.h>

#include <cstddef>

namespace {

struct Bounds {
  void* begin = nullptr;
  std::size_t size = 0;
};

thread_local Bounds known;

int askLibrary(pthread_t thread, pthread_attr_t* attributes) {
  using Ask = int (*)(pthread_t, pthread_attr_t*);
  static const auto ask = reinterpret_cast<Ask>(dlsym(RTLD_NEXT, "pthread_getattr_np"));
  return ask(thread, attributes);
}

}  // namespace

// Replaces the C library's function.
extern "C" int pthread_getattr_np(pthread_t thread, pthread_attr_t* attributes) {
  if (pthread_equal(thread, pthread_self()) == 0) return askLibrary(thread, attributes);
  if (known.size == 0) {
    const int error = askLibrary(thread, attributes);
    return error != 0 ? error : pthread_attr_getstack(attributes, &known.begin, &known.size);
  }
  const int error = pthread_attr_init(attributes);
  return error != 0 ? error : pthread_attr_setstack(attributes, known.begin, known.size);
}

#endif

namespace quillet::suite {

void keepStackBounds() {
  pthread_attr_t attributes;
  if (pthread_getattr_np(pthread_self(), &attributes) == 0) pthread_attr_destroy(&attributes);
}

}  // namespace quillet::suite
