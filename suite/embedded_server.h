// The database server inside this process: its options, its start and its end. It starts once in a
// process; the library does not survive a second start.
#pragma once

#include <filesystem>

#include "suite/error_stream.h"
#include "suite/folder_examination.h"
#include "suite/folder_lock.h"

namespace quillet::suite {

class EmbeddedServer {
 public:
  // Holds the folder and starts the server on it. Throws std::runtime_error as
  // Database::openEmbedded does; nothing in the folder has changed then.
  EmbeddedServer(const std::filesystem::path& folder, const ExaminationPolicy& policy);
  ~EmbeddedServer();
  EmbeddedServer(const EmbeddedServer&) = delete;
  EmbeddedServer& operator=(const EmbeddedServer&) = delete;

  const std::filesystem::path& folder() const { return folder_; }

  // Whether the database was made by this object and nothing was loaded into it yet.
  bool isNew() const { return isNew_; }

  // Between these two nothing is synchronised to the disk. Only for a new database: when the
  // process dies before the second, the next start empties the folder.
  void beginBulkLoad();
  void endBulkLoad();

 private:
  std::filesystem::path folder_;
  FolderLock lock_;
  bool isNew_ = false;
  ErrorStream errors_;
};

// Starts the server library on the folder without any of the checks above; false when it refuses.
bool startServerLibrary(const std::filesystem::path& folder);

}  // namespace quillet::suite
