// The files that were prepared from one client's year, below the documents folder.
//
//   Annex3CD/CODE-08-09/            every file in it
//   annexdata/annexa_CODE_08_09.rtf   and its siblings
//   files/C-CODE/08-09_3cd.txt        and its siblings
//
// Names compare without regard to case. Folders are entered one by one by the names that they have,
// so that a client code never forms a path, and a link in place of a folder is not followed.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ports/ports.h"

namespace quillet {

// What a host without one of its own uses: a file goes at once.
class RemoveAtOnce : public FileRemover {
 public:
  bool remove(const std::filesystem::path& file) override;
};

// Whether the code can be part of a file's name: it holds no separator, no "..", no drive mark and
// no control character.
bool namesFiles(std::string_view clientCode);

class YearFiles {
 public:
  // Years in full. The code is one that can be part of a file's name.
  YearFiles(FileRemover& remover, const std::string& documents, std::string clientCode,
            int firstYear, int secondYear);

  void deleteAnnexureFolder();
  void deleteAnnexures();
  void deleteReports();

  // What could not be deleted, as paths below the documents folder. What is not there is no
  // failure.
  const std::vector<std::string>& failed() const { return failed_; }

 private:
  using Wanted = std::function<bool(const std::string& name)>;
  // What a folder is that has a name wanted: it stands where a certain file should, or it is
  // merely among files that all go.
  enum class Folders { inTheWay, passedOver };
  // Deletes the files wanted in the folder that these names lead to.
  void deleteIn(const std::vector<std::string>& folders, const Wanted& wanted,
                Folders met = Folders::inTheWay);
  void deleteBelow(const std::filesystem::path& folder, const std::vector<std::string>& folders,
                   std::size_t depth, const Wanted& wanted, Folders met);
  void deleteFiles(const std::filesystem::path& folder, const Wanted& wanted, Folders folders);
  void fail(const std::filesystem::path& path);

  FileRemover& remover_;
  std::filesystem::path documents_;
  std::string client_;
  std::string years_[2];  // two digits each
  std::vector<std::string> failed_;
};

}  // namespace quillet
