// What is sent amid an act in place of a statement that would commit it.
#pragma once

#include <string>

namespace quillet::suite {

std::string withinAct(const std::string& sql);

// A table of this connection alone, which no other station waits for.
bool changesScratch(const std::string& sql);

}  // namespace quillet::suite
