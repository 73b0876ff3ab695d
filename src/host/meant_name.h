// What to do when the database finds another name than the one that a person typed: it takes more
// names for the same than a person does, "M2" and "m²" for example, so one of them cannot be made
// beside the other.
#pragma once

#include <string>

#include "ports/ports.h"

namespace quillet {

// Whether the name that was found is the one that was typed, or a person says that it is meant;
// shows both.
bool nameMeant(Dialogs& dialogs, const std::string& typed, const std::string& found,
               const std::string& title = {});
// The same of the ledger that the service object found, whatever names the ledger goes by.
bool ledgerMeant(ServiceObject& host, Dialogs& dialogs, const std::string& typed, long id,
                 const std::string& title = {});

// What a refusal of a name adds when it is another name that stands in the way; "" when it is the
// same one.
std::string whyTaken(const std::string& typed, const std::string& found);

// For the hint line after a name was found that is not meant.
inline constexpr const char* chooseAnotherName =
    "Choose a name that differs more: the database cannot tell this one from the other.";

}  // namespace quillet
