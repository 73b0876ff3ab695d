// The rows of a select as a database component of the platform hands them out: Fields, EOF, BOF,
// RecordCount, MoveFirst, MoveNext, Close. Using it after Close, or its fields at the end, is an
// error as it is there.
#pragma once

#include <string>
#include <vector>

#include "fakes/named_object.h"

namespace quillet::fakes {

using Row = std::vector<Variant>;

// What a recordset offers besides.
struct Offers {
  long rowsAtOnce = 0;  // how many rows GetRows hands out at a time; 0: there is no GetRows
  bool counts = true;   // whether RecordCount knows the number of rows
  long failsAt = -1;    // the row, from 0, that cannot be read; -1: none
};

Pointer<IDispatch> recordset(std::vector<std::string> names, std::vector<Row> rows,
                             const Offers& offers = {});

}  // namespace quillet::fakes
