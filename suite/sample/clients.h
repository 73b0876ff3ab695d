// Who the sample practice works for: the clients with their register entries, and the firms that
// they deal with. All of them are invented.
#pragma once

#include <string>
#include <vector>

#include "suite/client_register.h"
#include "suite/sample/chart.h"

namespace quillet::suite::sample {

struct Owner {
  std::string name;
  long share;  // per cent of the profit
};

struct SampleClient {
  Client entry;
  std::vector<Owner> owners;  // of a partnership

  std::string trade;
  std::string dealsIn;  // decides the names of its customers and suppliers
  long firstYear = 0;
  long years = 0;            // 0: no trial balance yet
  bool latestEmpty = false;  // the latest year is registered but holds no lines
  long turnover = 0;         // of the first year, in rupees
  long growth = 0;           // per cent a year
  long suppliers = 0;
  long customers = 0;
  long lines = 0;  // when given, so many customers that the first year has exactly these lines
  long omits = 0;  // one in so many of the usual small accounts is not kept
};

const std::vector<SampleClient>& sampleClients();

// The n-th (from 0) name of a customer or supplier of who deals in that; different for every n up
// to some thousands.
std::string customerName(const std::string& dealsIn, long n);
std::string supplierName(const std::string& dealsIn, long n);

}  // namespace quillet::suite::sample
