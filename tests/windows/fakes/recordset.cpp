#include "fakes/recordset.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "data/errors.h"
#include "data/text.h"

namespace quillet::fakes {
namespace {

constexpr const char* source = "Recordset";
constexpr long noRow = 3021;
constexpr long noField = 3265;
constexpr long closed = 3704;
constexpr long connectionLost = 2013;

struct Rows {
  std::vector<std::string> names;
  std::vector<Row> rows;
  Offers offers;
  std::size_t at = 0;
  bool open = true;

  void mustBeOpen() const {
    if (!open) throw RunTimeError(closed, "The recordset is closed.", source);
  }
  const Row& current() const {
    mustBeOpen();
    if (at >= rows.size()) throw RunTimeError(noRow, "There is no current row.", source);
    if (offers.failsAt == static_cast<long>(at)) {
      throw RunTimeError(connectionLost, "Lost connection during query", "Driver");
    }
    return rows[at];
  }
  std::size_t column(const VARIANT& nameOrPosition) const {
    if (nameOrPosition.vt != VT_BSTR) {
      const long position = windows::asLong(nameOrPosition);
      if (position >= 0 && position < static_cast<long>(names.size())) {
        return static_cast<std::size_t>(position);
      }
    } else {
      const std::string name = windows::asText(nameOrPosition);
      for (std::size_t i = 0; i < names.size(); ++i) {
        if (equalIgnoringCase(names[i], name)) return i;
      }
    }
    throw RunTimeError(noField, "There is no such field.", source);
  }
};

using Shared = std::shared_ptr<Rows>;

Pointer<IDispatch> field(const Shared& rows, std::size_t column) {
  auto* const object = new MemberTable;
  object->add("Name", [rows, column](const Call&) { return Variant(rows->names[column]); });
  object->add("Value", [rows, column](const Call&) { return rows->current()[column]; });
  return Pointer<IDispatch>::attach(object);
}

Pointer<IDispatch> fields(const Shared& rows) {
  auto* const object = new MemberTable;
  object->add("Count",
              [rows](const Call&) { return Variant(static_cast<long>(rows->names.size())); });
  object->add("Item",
              [rows](const Call& call) { return Variant(field(rows, rows->column(call[0]))); });
  return Pointer<IDispatch>::attach(object);
}

// The next rows, by field and row.
Variant getRows(Rows& rows) {
  rows.current();
  const std::size_t left = rows.rows.size() - rows.at;
  const std::size_t count = std::min(left, static_cast<std::size_t>(rows.offers.rowsAtOnce));
  SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(rows.names.size()), 0},
                             {static_cast<ULONG>(count), 0}};
  Variant table;
  table.parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
  table.vt = VT_ARRAY | VT_VARIANT;
  for (std::size_t row = 0; row < count; ++row, ++rows.at) {
    for (std::size_t column = 0; column < rows.names.size(); ++column) {
      LONG place[] = {static_cast<LONG>(column), static_cast<LONG>(row)};
      Variant value = rows.current()[column];
      SafeArrayPutElement(table.parray, place, &value);
    }
  }
  return table;
}

}  // namespace

Pointer<IDispatch> recordset(std::vector<std::string> names, std::vector<Row> all,
                             const Offers& offers) {
  const auto rows = std::make_shared<Rows>(Rows{std::move(names), std::move(all), offers});
  auto* const object = new MemberTable;
  object->add("Fields", [rows](const Call& call) {
    return Variant(call.arguments.empty() ? fields(rows) : field(rows, rows->column(call[0])));
  });
  object->add("EOF", [rows](const Call&) {
    rows->mustBeOpen();
    return Variant(rows->at >= rows->rows.size());
  });
  object->add("BOF", [rows](const Call&) { return Variant(rows->rows.empty()); });
  object->add("RecordCount", [rows](const Call&) {
    return Variant(rows->offers.counts ? static_cast<long>(rows->rows.size()) : -1);
  });
  if (offers.rowsAtOnce > 0) object->add("GetRows", [rows](const Call&) { return getRows(*rows); });
  object->add("MoveFirst", [rows](const Call&) {
    rows->at = 0;
    return Variant();
  });
  object->add("MoveNext", [rows](const Call&) {
    rows->current();
    ++rows->at;
    return Variant();
  });
  object->add("Close", [rows](const Call&) {
    rows->mustBeOpen();
    rows->open = false;
    return Variant();
  });
  return Pointer<IDispatch>::attach(object);
}

}  // namespace quillet::fakes
