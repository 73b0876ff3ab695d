// The parts of a zip file that is in memory. Nothing is unpacked to disk, and no part beyond a
// size that no workbook has.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace quillet::suite {

// Of parts that are lists of cells or texts, and of all others.
inline constexpr std::size_t largestSheet = std::size_t{256} << 20;
inline constexpr std::size_t largestList = std::size_t{32} << 20;

class ZipFile {
 public:
  // `size` is that of the whole part, 0 when it is not known beforehand.
  using Take = std::function<bool(std::string_view piece, double size)>;

  explicit ZipFile(std::string_view bytes) : bytes_(bytes) {}

  // Names are compared without regard to case.
  bool has(const std::string& part) const;
  // Hands on the part piece by piece until `take` answers false; false when there is no such part.
  // Throws SourceError when the file is damaged, cut or locked, or the part larger than `most`.
  bool read(const std::string& part, const Take& take, std::size_t most) const;
  std::string text(const std::string& part) const;  // "" when there is no such part
  // The bytes of the same file in which one part is changed.
  std::string with(const std::string& part,
                   const std::function<std::string(std::string_view)>& change) const;

 private:
  std::string_view bytes_;
};

}  // namespace quillet::suite
