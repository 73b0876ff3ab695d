// What an error of a database server elsewhere means to a person, and what is to be done.
#pragma once

#include <string>

namespace quillet::suite {

// The text with its meaning behind; the text alone where that says enough.
std::string explained(long number, const std::string& text);

// Errors of a connection that has not come about.
bool isWrongPassword(long number);

}  // namespace quillet::suite
