#include "suite/file_removal.h"

#include <sys/stat.h>

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

FileRemoval::FileRemoval(UnitOfWork& unit, fs::path documents, fs::path kept)
    : unit_(unit), documents_(std::move(documents)), kept_(std::move(kept)) {}

bool FileRemoval::remove(const fs::path& file) {
  const fs::path name = file.lexically_relative(documents_);
  // A name in another encoding cannot be kept in the table.
  if (!leadsBelow(documents_, name) || !isUtf8(name.string())) return false;
  unit_.execute("insert into SuiteRemoval(File,Identity) values('" + unit_.escape(name.string()) +
                "','" + unit_.escape(identityOf(file)) + "')");
  asked_ = true;
  return true;
}

void FileRemoval::bringBack(Instant act) {
  unit_.execute("update SuiteRemoval set State='back' where At='" + instantText(act) + '\'');
  asked_ = true;
}

void FileRemoval::removeAgain(Instant act) {
  unit_.execute(
      "update SuiteRemoval set State='',At=now(6) where State in ('here','back') and At='" +
      instantText(act) + '\'');
  asked_ = true;
}

std::vector<std::string> FileRemoval::carryOut() {
  if (!std::exchange(asked_, false)) return {};
  std::vector<std::string> left = putAway();
  for (std::string& name : putBack()) left.push_back(std::move(name));
  return left;
}

// Both folders are made durable: after a power cut the file is in one of them, and its row says
// where it is to go.
bool FileRemoval::move(const fs::path& from, const fs::path& to) const {
  std::error_code error;
  fs::create_directories(to.parent_path(), error);
  if (!error) fs::rename(from, to, error);
  return !error && synchroniseFolder(to.parent_path()) && synchroniseFolder(from.parent_path());
}

std::vector<std::string> FileRemoval::putAway() {
  std::vector<std::string> left;
  const RecordsetPtr rows =
      unit_.query("select File,Identity,row_id from SuiteRemoval where State=''");
  for (; !rows->EOF_(); rows->MoveNext()) {
    const fs::path name = rows->text(0);
    const std::string row = rows->text(2);
    const bool ours = leadsBelow(documents_, name);
    // Moved already, before a power cut.
    bool away = fs::exists(fs::symlink_status(kept_ / row));
    if (!away && ours && !rows->text(1).empty() && identityOf(documents_ / name) == rows->text(1)) {
      away = move(documents_ / name, kept_ / row);
      if (!away) {
        left.push_back(rows->text(0));
        continue;
      }
    }
    unit_.execute((away ? "update SuiteRemoval set State='kept'" : "delete from SuiteRemoval") +
                  (" where row_id=" + row));
  }
  return left;
}

// A file that was made under the name since stays, and so does the kept one.
std::vector<std::string> FileRemoval::putBack() {
  std::vector<std::string> left;
  const RecordsetPtr rows = unit_.query("select File,row_id from SuiteRemoval where State='back'");
  for (; !rows->EOF_(); rows->MoveNext()) {
    const fs::path name = rows->text(0);
    const fs::path kept = kept_ / rows->text(1);
    const bool isKept = fs::exists(fs::symlink_status(kept));
    const bool taken = fs::exists(fs::symlink_status(documents_ / name));
    if (isKept && (!leadsBelow(documents_, name) || taken || !move(kept, documents_ / name))) {
      left.push_back(rows->text(0));
      unit_.execute("update SuiteRemoval set State='kept' where row_id=" + rows->text(1));
    } else {
      unit_.execute("update SuiteRemoval set State='here' where row_id=" + rows->text(1));
    }
  }
  return left;
}

void FileRemoval::removeOld() {
  unit_.execute("delete from SuiteRemoval where State='here' and At<now(6)-interval 90 day");
  const RecordsetPtr rows = unit_.query(
      "select row_id from SuiteRemoval where State='kept' and At<now(6)-interval 90 day");
  for (; !rows->EOF_(); rows->MoveNext()) {
    std::error_code error;
    fs::remove(kept_ / rows->text(0), error);
    if (!error) unit_.execute("delete from SuiteRemoval where row_id=" + rows->text(0));
  }
}

}  // namespace quillet::suite
