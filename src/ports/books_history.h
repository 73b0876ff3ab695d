// What a host may offer that keeps every version of the books: windows on what was changed and on
// how the books stood, and taking back what was done last.
#pragma once

#include <map>
#include <string>

namespace quillet {

// A client's financial year; it may have been deleted.
struct YearOfClient {
  std::string client;
  std::string clientName;
  std::string firstDate;   // "01042008"
  std::string secondDate;  // "31032009"
};

class BooksHistory {
 public:
  virtual ~BooksHistory() = default;
  // The forms below take no input until it closes.
  virtual void showChanges(const YearOfClient& year) = 0;
  virtual void showAsItStood(const YearOfClient& year) = 0;
  // Takes the last act on the year's books back that is in effect, and tells what that was, or why
  // it cannot be. Nothing is changed then.
  struct TakenBack {
    bool done = false;
    std::string told;
  };
  virtual TakenBack takeBackLast(const YearOfClient& year) = 0;

  // When the client's years were changed last, "22/11/2026 16:45:00" by the clock of this computer,
  // by their second dates. A year that nothing changed since the history began is not there.
  virtual std::map<std::string, std::string> lastChanges(const std::string& client) = 0;

  // The code that a client of this former one has by now; "" where it is gone, or was never there.
  virtual std::string codeSince(const std::string& client) = 0;

  // The highest id that an account group ever had, 0 when there was none. The history means that
  // group by it.
  virtual long highestGroupEver() = 0;
};

}  // namespace quillet
