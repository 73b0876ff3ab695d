// A client's financial year and the one before it: where their books are, which of them is in view,
// and their lines as they were read last.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "books/lines.h"
#include "books/registry.h"
#include "books/unposted_changes.h"
#include "ports/ports.h"

namespace quillet {

class TwoYears {
 public:
  enum Year { current = 0, previous = 1 };
  enum class View { current = 0, previous = 1, both = 2 };
  using Lines = std::array<std::vector<Line>, 2>;  // by year

  explicit TwoYears(ServiceObject& host) : host_(host) {}

  // The client whose year is opened next, when the name is known already.
  void setClient(const std::string& code, const std::string& name);
  // Opens the client's year in that table, "" for none. Nothing of the year before is known then.
  void open(const ClientTable& books, const YearKeys& keys);
  // Looks the client's name and the year before up, unless that is done.
  void readRegisters();

  const std::string& client() const { return client_; }
  const std::string& clientName() const { return clientName_; }
  bool hasTable() const { return !tables_[current].empty(); }
  bool has(Year year) const;
  bool isGone(Year year) const { return gone_[year]; }
  // Another station has deleted the year: its table may hold another one's lines, and none are
  // read.
  void setGone(Year year, bool gone) { gone_[year] = gone; }
  // "" while it is not known.
  const std::string& table(Year year) const { return tables_[year]; }
  ClientTable books(Year year) const { return {tables_[year], client_}; }
  YearKeys keys(Year year) const { return year == current ? keys_ : keys_.before(); }

  View view() const { return view_; }
  void setView(View view) { view_ = view; }
  bool inView(Year year) const;
  // Whose lines a page and a printout take, and where a new line goes: the current year's in the
  // view of both.
  Year yearInView() const { return inView(current) ? current : previous; }

  // Reads the lines of the years in view. `offerImport` is asked when the current year is empty and
  // the previous one is not, and says whether it has imported that; null asks nothing.
  Lines read(const std::function<bool()>& offerImport) const;
  // Those were read without a failure.
  void keep(Lines lines);
  void forgetLines();
  bool linesRead() const { return linesRead_; }
  const std::vector<Line>& lines(Year year) const { return lines_[year]; }

 private:
  std::vector<Line> select(Year year) const;

  ServiceObject& host_;
  std::string client_;
  std::string clientName_;
  YearKeys keys_;
  std::string tables_[2];
  std::array<bool, 2> gone_{};
  View view_ = View::current;
  Lines lines_;
  bool linesRead_ = false;
};

// A line and the year it stands in.
struct YearLine {
  TwoYears::Year year = TwoYears::current;
  Line line;
};

}  // namespace quillet
