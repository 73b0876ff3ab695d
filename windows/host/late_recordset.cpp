#include "windows/host/late_recordset.h"

#include "data/errors.h"
#include "windows/com/array.h"

namespace quillet::windows {
namespace {

constexpr const char* source = "Recordset";
constexpr long typeMismatch = 13;
constexpr long noCurrentRow = 3021;

// Closes the recordset however its reading ends. What was read stays read when it cannot be closed.
class Closing {
 public:
  explicit Closing(const Late& recordset) : recordset_(recordset) {}
  ~Closing() {
    try {
      recordset_.call("Close");
    } catch (const std::exception&) {
      // Nothing depends on it.
    }
  }
  Closing(const Closing&) = delete;
  Closing& operator=(const Closing&) = delete;

 private:
  const Late& recordset_;
};

bool atEnd(const Late& recordset) { return asTruth(recordset.call("EOF")); }

}  // namespace

LateRecordset::LateRecordset(const Late& recordset) {
  if (!recordset) {
    throw RunTimeError(91, "The host gave no recordset", recordset.name());
  }
  const Closing closing(recordset);
  read(recordset);
}

void LateRecordset::read(const Late& recordset) {
  const Late all = recordset.object("Fields");
  const long count = asLong(all.call("Count"));
  std::vector<Late> fields;
  for (long i = 0; i < count; ++i) {
    fields.push_back(all.object("Item", i));
    names_.push_back(asText(fields.back().call("Name")));
  }
  if (!readAtOnce(recordset)) readCells(recordset, fields);
  rows_ = names_.empty() ? 0 : cells_.size() / names_.size();
}

// Some recordsets hand out a part of their rows at a time. What was handed out once does not come
// again, so an answer of another shape is an error.
bool LateRecordset::readAtOnce(const Late& recordset) {
  if (!recordset.has("GetRows")) return false;
  while (!atEnd(recordset)) addRows(recordset.call("GetRows"));
  return true;
}

void LateRecordset::addRows(const VARIANT& rows) {
  const bool table = rows.vt == (VT_ARRAY | VT_VARIANT) && SafeArrayGetDim(rows.parray) == 2 &&
                     lengthOf(rows.parray, 1) == names_.size();
  const ArrayView<const VARIANT> values(table ? rows.parray : nullptr);
  if (values.size() == 0) {
    throw RunTimeError(typeMismatch, "GetRows answered no table of the fields.", source);
  }
  for (const VARIANT& value : values) add(value);
}

// A field tells the value of the row that the recordset has come to.
void LateRecordset::readCells(const Late& recordset, const std::vector<Late>& fields) {
  for (; !atEnd(recordset); recordset.call("MoveNext")) {
    for (const Late& field : fields) add(field.call("Value"));
  }
}

// A value that is no text matters only to who asks for it.
void LateRecordset::add(const VARIANT& value) {
  Cell cell{texts_.size(), 0, isNull(value) ? Cell::Kind::null : Cell::Kind::text};
  try {
    texts_ += asText(value);
    cell.size = texts_.size() - cell.begin;
  } catch (const RunTimeError&) {
    cell.kind = Cell::Kind::unreadable;
  }
  cells_.push_back(cell);
}

void LateRecordset::MoveNext() {
  if (!EOF_()) ++row_;
}

std::optional<std::string_view> LateRecordset::field(int column) const {
  if (EOF_()) throw RunTimeError(noCurrentRow, "The result has no further row.", source);
  const auto c = static_cast<std::size_t>(column);
  const Cell& cell = cells_[row_ * names_.size() + c];
  if (cell.kind == Cell::Kind::unreadable) {
    throw RunTimeError(typeMismatch, "The field " + names_[c] + " holds no text.", source);
  }
  if (cell.kind == Cell::Kind::null) return std::nullopt;
  return std::string_view(texts_).substr(cell.begin, cell.size);
}

}  // namespace quillet::windows
