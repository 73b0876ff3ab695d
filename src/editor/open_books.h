// The books that the editor is open on, which its parts share.
#pragma once

#include "books/account_groups.h"
#include "books/two_years.h"
#include "host/context.h"

namespace quillet {

struct OpenBooks {
  explicit OpenBooks(Context& opened) : context(opened), years(*opened.host) {}

  ServiceObject& host() const { return *context.host; }

  Context& context;
  TwoYears years;
  AccountGroups groups;
};

}  // namespace quillet
