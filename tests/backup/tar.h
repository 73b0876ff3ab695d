// Makes archives by hand, also such as no backup would be, and packs them with the system's zstd.
#pragma once

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace quillet::support {

struct TarEntry {
  std::string name;
  std::string content = {};
  char type = '0';  // '5' a folder, '1' a hard link, '2' a symbolic one, '3' a device
  std::string link = {};
  long size = -1;  // claimed; -1: the content's
};

inline std::string tarOf(const std::vector<TarEntry>& entries) {
  std::string all;
  for (const TarEntry& entry : entries) {
    std::string header(512, '\0');
    const auto put = [&](std::size_t at, const std::string& text) {
      header.replace(at, text.size(), text);
    };
    const auto octal = [](long number) {
      std::array<char, 24> text{};
      std::snprintf(text.data(), text.size(), "%011lo", static_cast<unsigned long>(number));
      return std::string(text.data());
    };
    put(0, entry.name);
    put(100, "0004777");
    put(124, octal(entry.size < 0 ? static_cast<long>(entry.content.size()) : entry.size));
    put(136, octal(0));
    put(148, "        ");
    header[156] = entry.type;
    put(157, entry.link);
    put(257, std::string("ustar\00000", 8));
    long sum = 0;
    for (const char c : header) sum += static_cast<unsigned char>(c);
    put(148, octal(sum).substr(5) + '\0' + ' ');
    all += header + entry.content;
    all.resize((all.size() + 511) / 512 * 512);
  }
  return all + std::string(1024, '\0');
}

inline void packByHand(const std::filesystem::path& file, const std::vector<TarEntry>& entries) {
  const std::string tar = file.string() + ".tar";
  std::ofstream(tar, std::ios::binary) << tarOf(entries);
  if (std::system(("zstd -q -f -o '" + file.string() + "' '" + tar + "'").c_str()) != 0) {
    throw std::runtime_error("zstd failed");
  }
  std::filesystem::remove(tar);
}

}  // namespace quillet::support
