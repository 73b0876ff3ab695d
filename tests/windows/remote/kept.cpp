#include "remote/kept.h"

namespace quillet::fakes {

Kept& kept() {
  static Kept all;
  return all;
}

}  // namespace quillet::fakes
