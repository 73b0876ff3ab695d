// The parts of a zip file that is in memory. Nothing is unpacked to disk, and no part beyond a
// size that no workbook has.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quillet::suite {

class ZipFile {
 public:
  // `size` is that of the whole part, 0 when it is not known beforehand.
  using Take = std::function<bool(std::string_view piece, double size)>;

  explicit ZipFile(std::string_view bytes) : bytes_(bytes) {}

  // Names are compared without regard to case.
  bool has(const std::string& part) const;
  // Hands on the part piece by piece until `take` answers false; false when there is no such part.
  // Throws SourceError when the file is damaged, cut or locked.
  bool read(const std::string& part, const Take& take) const;
  std::string text(const std::string& part) const;  // "" when there is no such part

 private:
  std::string_view bytes_;
};

}  // namespace quillet::suite
