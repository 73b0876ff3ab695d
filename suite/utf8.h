// Whether bytes are well-formed UTF-8. What is not is refused before it becomes SQL or a setting.
#pragma once

#include <string_view>

namespace quillet::suite {

bool isUtf8(std::string_view bytes);

}  // namespace quillet::suite
