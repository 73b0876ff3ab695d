// The suite's client register as the module reads it.
#pragma once

#include <string>

#include "ports/ports.h"

namespace quillet {

// The client's name: a company's from the register, a person's first, middle and last name joined
// with single blanks. "" for an unknown code.
std::string clientName(ServiceObject& host, const std::string& code);

// Whether the register has a client of that code.
bool isClient(ServiceObject& host, const std::string& code);

// What became of a client that the register has no more; the code that it was given since, "" where
// that is not known.
std::string goneClientText(const std::string& code, const std::string& codeSince);

// "Asha Traders (C1), 01/04/2008 - 31/03/2009", the dates as year keys.
std::string subjectOf(const std::string& name, const std::string& code, const std::string& firstKey,
                      const std::string& secondKey);

// "Asha Traders 2008-09", as files are named after them.
std::string fileSubjectOf(const std::string& name, const std::string& code,
                          const std::string& firstKey);

}  // namespace quillet
