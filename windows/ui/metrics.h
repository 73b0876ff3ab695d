// The fonts of a form's window, and the measures that follow from them. The font is the system's
// for messages, as large as the form, its host and the monitor want it.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace quillet::windows {

class Metrics {
 public:
  struct Wish {
    double factor = 1;             // the form's
    std::optional<double> points;  // the host's
    std::string name;              // the host's, "" for the system's font
    double shrunk = 1;             // on a monitor that has no room for it
    bool operator==(const Wish&) const = default;
  };
  Metrics(UINT dpi, const Wish& wish);
  ~Metrics();
  Metrics(const Metrics&) = delete;
  Metrics& operator=(const Metrics&) = delete;

  HFONT font() const { return font_; }
  HFONT bold() const { return bold_; }    // headings, rows that stand out
  HFONT quiet() const { return quiet_; }  // hints

  UINT dpi() const { return dpi_; }
  // The distance between controls: 8 px at the usual size.
  int step() const { return step_; }
  // The height of a line of text.
  int line() const { return line_; }
  // The height of a box, a button and a row of a list.
  int box() const { return box_; }
  int row() const { return row_; }
  // The width of that many figures.
  int characters(int count) const { return count * digit_; }
  // A measure for the usual resolution in pixels of this one.
  int pixels(int usual) const { return MulDiv(usual, static_cast<int>(dpi_), 96); }
  // The width of a line of text; "&" marks an access key unless `plain`.
  int widthOf(std::wstring_view text, bool plain = true) const;

 private:
  UINT dpi_;
  HDC paper_ = nullptr;  // to measure on
  HFONT font_ = nullptr, bold_ = nullptr, quiet_ = nullptr;
  int step_ = 0, line_ = 0, box_ = 0, row_ = 0, digit_ = 0;
};

}  // namespace quillet::windows
