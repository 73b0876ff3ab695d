#include "suite/file_removal.h"

#include <sys/stat.h>

#include <algorithm>
#include <set>
#include <system_error>
#include <utility>

#include "data/text.h"
#include "suite/atomic_file.h"

namespace quillet::suite {
namespace {

namespace fs = std::filesystem;

// What tells a file from another one that was made under its name later; "" where there is none.
std::string identityOf(const fs::path& file) {
  struct stat found {};
  if (lstat(file.c_str(), &found) != 0) return {};
  return std::to_string(found.st_ino) + ' ' + std::to_string(found.st_size) + ' ' +
         std::to_string(found.st_mtim.tv_sec) + ' ' + std::to_string(found.st_mtim.tv_nsec);
}

// A name from the table stays below the folder, and no folder on the way there is a link.
bool leadsBelow(const fs::path& folder, const fs::path& name) {
  if (name.empty() || name.is_absolute()) return false;
  fs::path way = folder;
  for (const fs::path& part : name.parent_path()) {
    way /= part;
    if (part == ".." || fs::is_symlink(way)) return false;
  }
  return name.filename() != "..";
}

}  // namespace

FileRemoval::FileRemoval(UnitOfWork& unit, fs::path documents)
    : unit_(unit), documents_(std::move(documents)) {}

bool FileRemoval::remove(const fs::path& file) {
  const fs::path name = file.lexically_relative(documents_);
  // A name in another encoding cannot be kept in the table.
  if (!leadsBelow(documents_, name) || !isUtf8(name.string())) return false;
  unit_.execute("insert into SuiteRemoval(File,Identity) values('" + unit_.escape(name.string()) +
                "','" + unit_.escape(identityOf(file)) + "')");
  asked_ = true;
  return true;
}

std::vector<std::string> FileRemoval::carryOut() {
  if (!std::exchange(asked_, false)) return {};
  std::vector<std::string> left, gone;  // names, row ids
  std::set<fs::path> folders;
  const RecordsetPtr rows = unit_.query("select File,Identity,row_id from SuiteRemoval");
  for (; !rows->EOF_(); rows->MoveNext()) {
    const fs::path file = documents_ / rows->text(0);
    std::error_code error;
    if (leadsBelow(documents_, rows->text(0)) && identityOf(file) == rows->text(1)) {
      fs::remove(file, error);
      folders.insert(file.parent_path());
    }
    (error ? left : gone).push_back(rows->text(error ? 0 : 2));
  }
  // A power cut brings a file back whose folder was not synchronised: it stays noted here.
  if (!std::all_of(folders.begin(), folders.end(), synchroniseFolder)) gone.clear();
  for (const std::string& row : gone) {
    unit_.execute("delete from SuiteRemoval where row_id=" + row);
  }
  return left;
}

}  // namespace quillet::suite
