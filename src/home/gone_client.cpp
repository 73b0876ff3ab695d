// A client whose years the home form shows, or whose first one is typed there, and whom another
// station has deleted meanwhile, or given another code.
#include "books/clients.h"
#include "home/third.h"

namespace quillet {

bool third::clientIsGone() {
  YearLocks* const locks = context_.environment.yearLocks();
  if (!Frame1.visible() || !locks || !locks->shared()) return false;
  return !isClient(*context_.host, clientCode_);
}

// Nothing is made for a code that nobody has.
void third::leaveGoneClient() {
  const std::string code = clientCode_;
  BooksHistory* const history = context_.environment.history();
  const std::string since = history ? history->codeSince(code) : std::string();
  if (context_.clientCode == code) context_.setYear({});
  context_.host->MainPageObj().showClient({}, {});
  registerChanged(since, goneClientText(code, since));
}

}  // namespace quillet
