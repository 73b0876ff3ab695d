// Who the sample practice works for: the clients with their register entries, and the firms that
// they deal with. All of them are invented.
#pragma once

#include <string>
#include <vector>

#include "suite/client_register.h"
#include "suite/sample/chart.h"

namespace quillet::suite::sample {

// What a client deals in; decides the names of its customers and suppliers.
enum class Line { cloth, hardware, medicine, advice };

struct Owner {
  std::string name;
  int share;  // per cent of the profit
};

struct SampleClient {
  const char* code = "";
  const char* name = "";                             // of a firm or company
  const char *first = "", *middle = "", *last = "";  // of a person
  const char* father = "";
  const char* born = "";
  const char* address = "";
  const char *groupCode = "", *groupName = "";
  const char* company = "";  // the name that a person trades under

  Trade trade = Trade::goods;
  Line line = Line::cloth;
  Ownership ownership = Ownership::proprietor;
  std::vector<Owner> owners = {};  // of a partnership
  int firstYear = 0;
  int years = 0;             // 0: no trial balance yet
  bool latestEmpty = false;  // the latest year is registered but holds no lines
  long turnover = 0;         // of the first year, in rupees
  int growth = 0;            // per cent a year
  int suppliers = 0;
  int customers = 0;
  int lines = 0;  // when given, so many customers that the first year has exactly these lines
  int omits = 6;  // one in so many of the usual small accounts is not kept
};

const std::vector<SampleClient>& sampleClients();

Client registerEntry(const SampleClient& client);

// The n-th (from 0) name of a customer or supplier in that line; different for every n up to some
// thousands.
std::string customerName(Line line, int n);
std::string supplierName(Line line, int n);

}  // namespace quillet::suite::sample
