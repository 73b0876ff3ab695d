// The properties as a container keeps them in a stream: a mark, their count, then name and value of
// each, UTF-8 with the length before it.
#pragma once

#include <objidl.h>

#include <string>

#include "controls/vtxt.h"

namespace quillet::windows {

std::string streamOf(const VTxt::PropertyBag& bag);
// Throws when the stream ends early or holds something else.
VTxt::PropertyBag readStream(IStream& stream);

}  // namespace quillet::windows
